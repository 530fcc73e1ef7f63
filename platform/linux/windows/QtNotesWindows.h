#pragma once

#include "platform/desk/NotesWindow.h"

namespace zv {

class QtNotesWindows : public NotesWindows {
public:
    std::shared_ptr<RichText> read(std::vector<std::byte> const& rtf) override;
    std::unique_ptr<NotesWindow> make(NotesWindowLayout const& layout, std::shared_ptr<RichText> const& text) override;
};

} // namespace zv
