#include "app/settings/MenuFileCommands.h"

#include "app/settings/MenuDifference.h"
#include "app/settings/SettingsTexts.h"
#include "platform/text/DateText.h"

namespace zv {

namespace {

constexpr char const* canBeUndone = "You can undo this, and your menu is kept among the backups.";

std::string counted(std::size_t count) { return std::to_string(count) + (count == 1 ? " item" : " items"); }

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
    auto const file = m_services.panels.chooseToSave("Export Menu", "Zanthe Vell Menu.plist");
    if (!file)
        return;
    auto const document = menuDocument(m_services.editor.items());
    auto const exported = document ? m_services.files.write(*file, *document) : Failure { document.error() };
    if (!exported)
        tell("The menu could not be exported to “" + file->lastPathComponent() + "”.", exported.error());
}

void MenuFileCommands::importMenu()
{
    auto const files
        = m_services.panels.chooseToOpen({ settingsTexts::importMenu, FilePanelKind::menuDocument, settingsTexts::menuDocuments, settingsTexts::allFiles });
    if (files.empty() || (m_services.importsSetup && m_services.importsSetup(files.front())))
        return;
    if (auto menu = read(files.front()))
        m_services.editor.replaceMenu(std::move(menu->items), settingsTexts::importMenu);
}

std::vector<MenuBackup> MenuFileCommands::backups() const { return m_services.backups.list(); }

void MenuFileCommands::restoreBackup(MenuBackup const& backup)
{
    auto menu = read(backup.file);
    if (!menu)
        return;
    auto const replaced = "Your menu of " + counted(countOf(m_services.editor.items())) + " is replaced by one of " + counted(menu->itemCount) + ".\n";
    auto const differing = describe(differenceBetween(m_services.editor.items(), menu->items));
    if (!confirms("Restore the menu of " + localizedDateAndTime(backup.time) + "?", replaced + differing + canBeUndone, "Restore"))
        return;
    m_services.editor.replaceMenu(std::move(menu->items), "Restore Backup");
    m_restored = m_services.editor.items();
}

void MenuFileCommands::undoRestoring()
{
    if (isRestored() && m_services.editor.undoLast)
        m_services.editor.undoLast();
}

void MenuFileCommands::restoreDefaultMenu()
{
    auto const replaced = "Your menu is replaced by the one that came with Zanthe Vell. ";
    if (confirms("Restore the default menu?", std::string(replaced) + canBeUndone, "Restore Default Menu"))
        m_services.editor.restoreDefaultMenu();
}

bool MenuFileCommands::confirms(std::string message, std::string informativeText, std::string button)
{
    Alert question;
    question.message = std::move(message);
    question.informativeText = std::move(informativeText);
    question.buttons = { std::move(button), "Cancel" };
    question.escapeButton = 1;
    return m_services.alerts.run(question) == 0;
}

/// The menu in the file; else says why there is none.
std::optional<ImportedMenu> MenuFileCommands::read(Url const& file)
{
    auto const message = "“" + file.lastPathComponent() + "” could not be imported.";
    auto const bytes = m_services.files.read(file);
    if (!bytes)
        return tell(message, bytes.error()), std::nullopt;
    auto menu = readMenuDocument(*bytes, m_services.locations);
    if (!menu)
        return tell(message, menu.error().description() + ". Your menu stays as it is."), std::nullopt;
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
