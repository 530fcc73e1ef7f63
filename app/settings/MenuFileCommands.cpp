#include "app/settings/MenuFileCommands.h"

#include "app/model/MenuDocument.h"
#include "app/settings/SettingsTexts.h"

namespace zv {

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
    if (!files.empty())
        replaceFrom(files.front(), settingsTexts::importMenu);
}

std::vector<MenuBackup> MenuFileCommands::backups() const { return m_services.backups.list(); }

void MenuFileCommands::restoreBackup(MenuBackup const& backup) { replaceFrom(backup.file, "Restore Backup"); }

void MenuFileCommands::restoreDefaultMenu()
{
    Alert question;
    question.message = "Restore the default menu?";
    question.informativeText = "Your menu is replaced by the one that came with Zanthe Vell. You can undo this, and your menu is kept among the backups.";
    question.buttons = { "Restore Default Menu", "Cancel" };
    question.escapeButton = 1;
    if (m_services.alerts.run(question) == 0)
        m_services.editor.restoreDefaultMenu();
}

void MenuFileCommands::replaceFrom(Url const& file, std::string const& editName)
{
    auto const message = "“" + file.lastPathComponent() + "” could not be imported.";
    auto const bytes = m_services.files.read(file);
    if (!bytes)
        return tell(message, bytes.error());
    auto menu = readMenuDocument(*bytes, m_services.locations);
    if (!menu)
        return tell(message, menu.error().description() + ". Your menu stays as it is.");
    m_services.editor.replaceMenu(std::move(menu->items), editName);
}

void MenuFileCommands::tell(std::string message, std::string informativeText)
{
    Alert alert;
    alert.message = std::move(message);
    alert.informativeText = std::move(informativeText);
    m_services.alerts.run(alert);
}

} // namespace zv
