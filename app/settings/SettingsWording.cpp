#include "app/settings/SettingsWording.h"

#include "app/settings/LoginItem.h"

namespace zv {

namespace {

SettingsWording forMacOS()
{
    SettingsWording wording;
    wording.replaceMenu = "Replace the Apple menu";
    wording.replaceMenuHelp = "A click on the Apple logo opens your menu instead of the system’s.";
    wording.logo = "Six-colour logo";
    wording.statusItem = "Show in the menu bar";
    wording.statusItemHelp = "A laurel among the icons of the menu bar opens your menu.";
    wording.noPresenceNote = "Zanthe Vell then shows a Dock icon.";
    wording.openAtLoginHelp = LoginItem::helpText;
    wording.loginApprovalNote = LoginItem::approvalNote;
    wording.loginApprovalButton = LoginItem::approvalButton;
    wording.depth = "Folders within open";
    return wording;
}

SettingsWording forLinuxDesktop()
{
    SettingsWording wording;
    wording.replaceMenu = "Corner of the panel";
    wording.replaceMenuHelp = "A click into the left end of the panel opens your menu.";
    wording.logo = "Six-colour laurel there";
    wording.statusItem = "Icon in the panel";
    wording.statusItemHelp = "A laurel among the icons of the panel opens your menu.";
    wording.noPresenceNote = "Zanthe Vell is then reached by “zanthe-vell settings”.";
    wording.openAtLoginHelp = "If you do not select this checkbox, you’ll get the standard panel every login until you manually open Zanthe Vell yourself.";
    wording.loginApprovalNote = "The desktop’s settings have switched Zanthe Vell off among the programs that start at login, so it will not open until you "
                                "switch it on there.";
    wording.loginApprovalButton = LoginItem::autostartButton;
    wording.statusItemIsNotShown = "Nothing on this desktop shows status icons. On GNOME, the extension “AppIndicator and KStatusNotifierItem Support” does; "
                                   "other panels have a status tray or notification area to add.";
    wording.loginFailure = [](std::string const& reason) { return "The autostart entry could not be changed: " + reason + "."; };
    wording.depth = "Levels of folders";
    return wording;
}

} // namespace

SettingsWording SettingsWording::of(SystemKind system) { return system == SystemKind::macOS ? forMacOS() : forLinuxDesktop(); }

} // namespace zv
