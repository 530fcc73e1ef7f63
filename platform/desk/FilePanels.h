#pragma once

#include "base/Url.h"

#include <optional>
#include <string>
#include <vector>

namespace zv {

enum class FilePanelKind { filesAndFolders, folder, menuDocument };

/// The system's panels for choosing files; modal. Main thread only.
class FilePanels {
public:
    virtual ~FilePanels() = default;
    /// Empty when the user cancelled.
    [[nodiscard]] virtual std::vector<Url> chooseToOpen(std::string const& title, FilePanelKind kind) = 0;
    [[nodiscard]] virtual std::optional<Url> chooseToSave(std::string const& title, std::string const& suggestedName) = 0;
};

} // namespace zv
