#pragma once

#include "platform/desk/FilePanels.h"

#include <functional>

namespace zv::fakes {

/// Answers with the test's choice; an empty choice is a cancel.
class FakeFilePanels : public FilePanels {
public:
    std::vector<Url> chooseToOpen(FilePanelQuestion const&) override
    {
        if (whileOpen)
            whileOpen();
        return opened;
    }
    std::optional<Url> chooseToSave(std::string const&, std::string const&) override { return saved; }

    std::function<void()> whileOpen; ///< what the user does meanwhile
    std::vector<Url> opened;
    std::optional<Url> saved;
};

} // namespace zv::fakes
