#pragma once

#include "platform/desk/FilePanels.h"

namespace zv {

class QtFilePanels : public FilePanels {
public:
    std::vector<Url> chooseToOpen(FilePanelQuestion const& question) override;
    std::optional<Url> chooseToSave(std::string const& title, std::string const& suggestedName) override;
};

} // namespace zv
