#pragma once

#include "app/settings/MenuEditor.h"
#include "platform/desk/Alerts.h"

#include <optional>
#include <string>
#include <vector>

namespace zv {

/// The content of a drag or the clipboard for the menu: records of items, else files.
struct MenuDrop {
    std::vector<std::string> records;
    std::vector<Url> files;
    MenuEditor::Drop recordsBecome = MenuEditor::Drop::copy;
};

struct DropOutcome {
    bool tookAny = false;
    std::optional<Alert> problem; ///< names the refused content; shown once the drag is over
};

[[nodiscard]] DropOutcome take(MenuDrop const& drop, MenuEditor& editor, MenuEditor::Position const& position);
[[nodiscard]] DropOutcome takeFiles(std::vector<Url> const& files, MenuEditor& editor, MenuEditor::Position const& position);

} // namespace zv
