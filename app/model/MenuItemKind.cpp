#include "app/model/MenuItemKind.h"

#include "app/model/NameTable.h"

#include <algorithm>
#include <utility>

namespace zv {

namespace {

enum class Reason : std::uint8_t { none, finderSelection, services, carbon };
enum class Fills : std::uint8_t { no, itself };

struct Row {
    std::string_view rawValue;
    std::string_view defaultTitle;
    Fills fills = Fills::no;
    Reason reason = Reason::none;
};

// In the order of MenuItemKind::Case. The raw texts are those of the older menu format and
// are stored in every user's menu: "Lock Screen" has a blank, the two software kinds share
// a title, and only the confirming variants of restart and its like have an ellipsis.
constexpr std::array<Row, MenuItemKind::fixedCount> rows { {
    { "Separator", "-" },
    { "Submenu", "Untitled Submenu" },
    { "FSObject", "File or Folder", Fills::itself },
    { "ZantheVellItems", "Zanthe Vell Items", Fills::itself },
    { "RevealZantheVellItems", "Reveal Zanthe Vell Items" },
    { "MountedVolumes", "Mounted Volumes", Fills::itself },
    { "RecentItems", "Recent Items", Fills::itself },
    { "RecentApps", "Recent Applications", Fills::itself },
    { "RecentDocs", "Recent Documents", Fills::itself },
    { "RecentFolders", "Recent Folders", Fills::itself },
    { "RecentServers", "Recent Servers", Fills::itself },
    { "RunningApplications", "Running Applications", Fills::itself },
    { "DockMenu", "Dock" },
    { "Shortcuts", "Shortcuts", Fills::itself },
    { "IPAddress", "IP Address", Fills::itself },
    { "AboutThisMac", "About This Mac" },
    { "AppStore", "App Store…" },
    { "GetMacOSXSoftware", "Get macOS Software…" },
    { "GetMacOSXSoftware2", "Get macOS Software…" },
    { "SoftwareUpdate", "Software Update…" },
    { "SystemPrefs", "System Settings", Fills::itself },
    { "SimpleSystemPrefs", "System Settings…" },
    { "DockPrefs", "Dock Settings…" },
    { "CustomizeZantheVell", "Customize Zanthe Vell…" },
    { "QuitZantheVell", "Quit Zanthe Vell" },
    { "Sleep", "Sleep" },
    { "Restart", "Restart…" },
    { "Shutdown", "Shut Down…" },
    { "LogOut", "Log Out…" },
    { "RestartForced", "Restart" },
    { "ShutdownForced", "Shut Down" },
    { "LogOutForced", "Log Out" },
    { "ForceQuit", "Force Quit…" },
    { "Lock Screen", "Lock Screen" },
    { "Location", "Location", Fills::itself },
    { "DockMagnification", "Dock Magnification" },
    { "DockHiding", "Dock Hiding" },
    { "DockPosLeft", "Position Dock on Left" },
    { "DockPosBottom", "Position Dock on Bottom" },
    { "DockPosRight", "Position Dock on Right" },
    { "OpenWith", "Open With…", Fills::no, Reason::finderSelection },
    { "MoveTo", "Move To…", Fills::no, Reason::finderSelection },
    { "SelectedFolderContents", "Selected Folder Contents", Fills::no, Reason::finderSelection },
    { "SetDesktopPicture", "Set Desktop Picture", Fills::no, Reason::finderSelection },
    { "Gather", "Gather", Fills::no, Reason::finderSelection },
    { "PasteAlias", "Paste Alias", Fills::no, Reason::finderSelection },
    { "PreviewImage", "Preview Image", Fills::no, Reason::finderSelection },
    { "AddToZantheVellItems", "Add to Zanthe Vell Items", Fills::no, Reason::services },
    { "MenuCommand", "Menu Command", Fills::no, Reason::carbon },
} };

std::string_view textOf(Reason reason)
{
    switch (reason) {
    case Reason::none:
        break;
    case Reason::finderSelection:
        return "Acts on the Finder selection. Zanthe delivered this through a contextual menu plug-in, which macOS no longer supports.";
    case Reason::services:
        return "Acts on the Finder selection, so it is a macOS Service now instead of a menu item. Right-click a file or folder in the Finder and look "
               "under Services.";
    case Reason::carbon:
        return "Sent a Carbon menu command to the front application. That mechanism was removed with Carbon.";
    }
    return {};
}

NameTable const& rawValueTable()
{
    static NameTable const table = [] {
        std::array<std::string_view, rows.size()> rawValues;
        std::transform(rows.begin(), rows.end(), rawValues.begin(), [](Row const& row) { return row.rawValue; });
        return NameTable(rawValues);
    }();
    return table;
}

} // namespace

MenuItemKind MenuItemKind::makeUnknown(std::string text)
{
    MenuItemKind kind { unknown };
    kind.m_unknownText = std::move(text);
    return kind;
}

MenuItemKind MenuItemKind::fromRawValue(std::string_view text)
{
    auto const position = rawValueTable().find(text);
    return position ? MenuItemKind(static_cast<Case>(*position)) : makeUnknown(std::string(text));
}

std::string_view MenuItemKind::rawValue() const { return m_case == unknown ? std::string_view(m_unknownText) : rows[m_case].rawValue; }

std::string_view MenuItemKind::defaultTitle() const { return m_case == unknown ? std::string_view(m_unknownText) : rows[m_case].defaultTitle; }

std::optional<std::string> MenuItemKind::unavailabilityReason() const
{
    if (m_case == unknown)
        return "Unrecognized item kind “" + m_unknownText + "”.";
    auto const reason = rows[m_case].reason;
    return reason == Reason::none ? std::nullopt : std::optional(std::string(textOf(reason)));
}

bool MenuItemKind::fillsItself() const { return m_case != unknown && rows[m_case].fills == Fills::itself; }

} // namespace zv
