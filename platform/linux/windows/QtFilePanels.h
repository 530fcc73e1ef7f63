#pragma once

#include "platform/desk/FilePanels.h"

namespace zv {

class QtFilePanels : public FilePanels {
public:
    std::vector<Url> chooseToOpen(std::string const& title, FilePanelKind kind) override;
    std::optional<Url> chooseToSave(std::string const& title, std::string const& suggestedName) override;
};

} // namespace zv
