#include "app/settings/MenuFileCommands.h"

#include "app/settings/MenuDifference.h"
#include "app/settings/SettingsTexts.h"
#include "base/Translation.h"
#include "platform/text/DateText.h"

namespace zv {

namespace {

constexpr Sentence canBeUndone = mark("You can undo this, and your menu is kept among the backups.");

std::string counted(std::size_t count) { return trn("%1 item", "%1 items", count); }

/// Including all levels.
std::size_t countOf(std::vector<MenuItem> const& items)
{
    auto count = items.size();
    for (auto const& item : items)
        count += countOf(item.children);
    return count;
}

} // namespace

void MenuFileCommands::exportMenu()
{
    auto const file = m_services.panels.chooseToSave(tr("Export Menu"), tr("Zanthe Vell Menu") + ".plist");
    if (!file)
        return;
    auto const document = menuDocument(m_services.editor.items());
    auto const exported = document ? m_services.files.write(*file, *document) : Failure { document.error() };
    if (!exported)
        tell(tr("The menu could not be exported to %1.", quoted(file->lastPathComponent())), exported.error());
}

void MenuFileCommands::importMenu()
{
    auto const files = m_services.panels.chooseToOpen(
        { tr(settingsTexts::importMenu), FilePanelKind::menuDocument, tr(settingsTexts::menuDocuments), tr(settingsTexts::allFiles) });
    if (files.empty() || (m_services.importsSetup && m_services.importsSetup(files.front())))
        return;
    if (auto menu = read(files.front()))
        m_services.editor.replaceMenu(std::move(menu->items), trc("edit that can be undone", "Import Menu"));
}

std::vector<MenuBackup> MenuFileCommands::backups() const { return m_services.backups.list(); }

void MenuFileCommands::restoreBackup(MenuBackup const& backup)
{
    auto menu = read(backup.file);
    if (!menu)
        return;
    // TRANSLATORS: %1 and %2 are counts, as “%1 items” is translated: 12 items
    auto const replaced = tr("Your menu of %1 is replaced by one of %2.", counted(countOf(m_services.editor.items())), counted(menu->itemCount)) + "\n";
    auto const differing = describe(differenceBetween(m_services.editor.items(), menu->items));
    if (!confirms(tr("Restore the menu of %1?", localizedDateAndTime(backup.time)), replaced + differing + tr(canBeUndone), trc("button", "Restore")))
        return;
    m_services.editor.replaceMenu(std::move(menu->items), trc("edit that can be undone", "Restore Backup"));
    m_restored = m_services.editor.items();
}

void MenuFileCommands::undoRestoring()
{
    if (isRestored() && m_services.editor.undoLast)
        m_services.editor.undoLast();
}

void MenuFileCommands::restoreDefaultMenu()
{
    auto const replaced = tr("Your menu is replaced by the one that came with Zanthe Vell.");
    if (confirms(tr("Restore the default menu?"), inSequence(replaced, tr(canBeUndone)), trc("button", "Restore Default Menu")))
        m_services.editor.restoreDefaultMenu();
}

bool MenuFileCommands::confirms(std::string message, std::string informativeText, std::string button)
{
    Alert question;
    question.message = std::move(message);
    question.informativeText = std::move(informativeText);
    question.buttons = { std::move(button), tr("Cancel") };
    question.escapeButton = 1;
    return m_services.alerts.run(question) == 0;
}

/// The menu in the file; else says why there is none.
std::optional<ImportedMenu> MenuFileCommands::read(Url const& file)
{
    auto const message = tr("%1 could not be imported.", quoted(file.lastPathComponent()));
    auto const bytes = m_services.files.read(file);
    if (!bytes)
        return tell(message, bytes.error()), std::nullopt;
    auto menu = readMenuDocument(*bytes, m_services.locations);
    if (!menu)
        return tell(message, tr("%1. Your menu stays as it is.", menu.error().description())), std::nullopt;
    return std::move(menu).value();
}

void MenuFileCommands::tell(std::string message, std::string const& informativeText)
{
    Alert alert;
    alert.message = std::move(message);
    alert.informativeText = settingsTexts::asSentence(informativeText);
    m_services.alerts.run(alert);
}

} // namespace zv
