#pragma once

#include "platform/desk/Clipboard.h"

namespace zv {

class QtClipboard : public Clipboard {
public:
    void setText(std::string const& text) override;
    void setFiles(std::vector<Url> const& files) override;
};

} // namespace zv
