#include "app/settings/SettingsWording.h"

#include "app/settings/LoginItem.h"
#include "base/Translation.h"

namespace zv {

namespace {

SettingsWording forMacOS()
{
    SettingsWording wording;
    wording.replaceMenu = tr("Replace the Apple menu");
    wording.replaceMenuHelp = tr("A click on the Apple logo opens your menu instead of the system’s.");
    wording.logo = tr("Six-colour logo");
    wording.statusItem = tr("Show in the menu bar");
    wording.statusItemHelp = tr("A laurel among the icons of the menu bar opens your menu.");
    wording.noPresenceNote = tr("Zanthe Vell then shows a Dock icon.");
    wording.openAtLoginHelp = tr(LoginItem::helpText);
    wording.loginApprovalNote = tr(LoginItem::approvalNote);
    wording.loginApprovalButton = tr(LoginItem::approvalButton);
    wording.commandIcons = tr("Icons for commands");
    wording.commandIconsHelp = tr("Shows a picture beside Sleep, Restart and the like, too.");
    wording.depth = tr("Folders within open");
    return wording;
}

SettingsWording forLinuxDesktop()
{
    SettingsWording wording;
    wording.replaceMenu = tr("Corner of the panel");
    wording.replaceMenuHelp = tr("A click into the left end of the panel opens your menu.");
    wording.logo = tr("Six-colour laurel there");
    wording.statusItem = tr("Icon in the panel");
    wording.statusItemHelp = tr("A laurel among the icons of the panel opens your menu.");
    wording.noPresenceNote = tr("Zanthe Vell is then reached by “zanthe-vell settings”.");
    wording.openAtLoginHelp = tr("If you do not select this checkbox, you’ll get the standard panel every login until you manually open Zanthe Vell yourself.");
    wording.loginApprovalNote = tr("The desktop’s settings have switched Zanthe Vell off among the programs that start at login, so it will not open until you "
                                   "switch it on there.");
    wording.loginApprovalButton = tr(LoginItem::autostartButton);
    wording.statusItemIsNotShown
        = tr("Nothing on this desktop shows status icons. On GNOME, the extension “AppIndicator and KStatusNotifierItem Support” does; "
             "other panels have a status tray or notification area to add.");
    wording.loginFailure = [](std::string const& reason) { return tr("The autostart entry could not be changed: %1.", reason); };
    wording.depth = tr("Levels of folders");
    return wording;
}

} // namespace

SettingsWording SettingsWording::of(SystemKind system) { return system == SystemKind::macOS ? forMacOS() : forLinuxDesktop(); }

} // namespace zv
