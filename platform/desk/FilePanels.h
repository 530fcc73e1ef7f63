#pragma once

#include "base/Url.h"

#include <optional>
#include <string>
#include <vector>

namespace zv {

enum class FilePanelKind { filesAndFolders, folder, menuDocument, image };

/// A question to the user, and its words.
struct FilePanelQuestion {
    std::string title;
    FilePanelKind kind = FilePanelKind::filesAndFolders;
    /// The names of the documents to choose from and of all files: panels may offer both.
    std::string documents {};
    std::string allFiles {};
};

/// The system's panels for choosing files; modal. Main thread only.
class FilePanels {
public:
    virtual ~FilePanels() = default;
    /// Empty when the user cancelled.
    [[nodiscard]] virtual std::vector<Url> chooseToOpen(FilePanelQuestion const& question) = 0;
    [[nodiscard]] virtual std::optional<Url> chooseToSave(std::string const& title, std::string const& suggestedName) = 0;
};

} // namespace zv
