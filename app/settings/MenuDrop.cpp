#include "app/settings/MenuDrop.h"

#include "app/settings/SettingsTexts.h"

namespace zv {

namespace {

Alert alertAbout(std::vector<Url> const& missing)
{
    Alert alert;
    alert.message = settingsTexts::filesNotAdded(missing.size());
    for (auto const& file : missing)
        alert.informativeText += (alert.informativeText.empty() ? "" : "\n") + settingsTexts::doesNotExist(file.path());
    return alert;
}

} // namespace

DropOutcome take(MenuDrop const& drop, MenuEditor& editor, MenuEditor::Position const& position)
{
    if (drop.records.empty())
        return takeFiles(drop.files, editor, position);
    auto const dropped = editor.drop(drop.records, position, drop.recordsBecome);
    if (dropped)
        return { true, std::nullopt };
    Alert alert;
    alert.message = tr(settingsTexts::itemsNotAdded);
    alert.informativeText = dropped.error();
    return { false, alert };
}

DropOutcome takeFiles(std::vector<Url> const& files, MenuEditor& editor, MenuEditor::Position const& position)
{
    auto const missing = editor.addFiles(files, position);
    return { missing.size() < files.size(), missing.empty() ? std::nullopt : std::optional(alertAbout(missing)) };
}

} // namespace zv
