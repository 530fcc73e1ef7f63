#include "app/model/MenuItemKind.h"

#include "app/model/NameTable.h"
#include "base/Translation.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zv {

namespace {

enum class Reason : std::uint8_t { none, finderSelection, services, carbon };
enum class Fills : std::uint8_t { no, itself };

struct Row {
    std::string_view rawValue;
    Sentence defaultTitle;
    Fills fills = Fills::no;
    Reason reason = Reason::none;
};

// In the order of MenuItemKind::Case. The raw texts are those of the older menu format and
// are stored in every user's menu: "Lock Screen" has a blank, the two software kinds share
// a title, and only the confirming variants of restart and its like have an ellipsis.
constexpr std::array<Row, MenuItemKind::fixedCount> rows { {
    { "Separator", { "-" } },
    { "Submenu", mark("Untitled Submenu") },
    { "FSObject", mark("File or Folder"), Fills::itself },
    { "ZantheVellItems", mark("Zanthe Vell Items"), Fills::itself },
    { "RevealZantheVellItems", mark("Reveal Zanthe Vell Items") },
    { "MountedVolumes", mark("Mounted Volumes"), Fills::itself },
    { "RecentItems", mark("Recent Items"), Fills::itself },
    { "RecentApps", mark("Recent Applications"), Fills::itself },
    { "RecentDocs", mark("Recent Documents"), Fills::itself },
    { "RecentFolders", mark("Recent Folders"), Fills::itself },
    { "RecentServers", mark("Recent Servers"), Fills::itself },
    { "RunningApplications", mark("Running Applications"), Fills::itself },
    { "DockMenu", mark("Dock") },
    { "Shortcuts", markc("of the Shortcuts application", "Shortcuts"), Fills::itself },
    { "IPAddress", mark("IP Address"), Fills::itself },
    { "AboutThisMac", mark("About This Mac") },
    { "AppStore", mark("App Store…") },
    { "GetMacOSXSoftware", mark("Get macOS Software…") },
    { "GetMacOSXSoftware2", mark("Get macOS Software…") },
    { "SoftwareUpdate", mark("Software Update…") },
    { "SystemPrefs", mark("System Settings"), Fills::itself },
    { "SimpleSystemPrefs", mark("System Settings…") },
    { "DockPrefs", mark("Dock Settings…") },
    { "CustomizeZantheVell", mark("Customize Zanthe Vell…") },
    { "QuitZantheVell", mark("Quit Zanthe Vell") },
    { "Sleep", markc("command", "Sleep") },
    { "Restart", mark("Restart…") },
    { "Shutdown", mark("Shut Down…") },
    { "LogOut", mark("Log Out…") },
    { "RestartForced", markc("command, at once", "Restart") },
    { "ShutdownForced", markc("command, at once", "Shut Down") },
    { "LogOutForced", markc("command, at once", "Log Out") },
    { "ForceQuit", mark("Force Quit…") },
    { "Lock Screen", mark("Lock Screen") },
    { "Location", markc("of the network", "Location"), Fills::itself },
    { "DockMagnification", mark("Dock Magnification") },
    { "DockHiding", mark("Dock Hiding") },
    { "DockPosLeft", mark("Position Dock on Left") },
    { "DockPosBottom", mark("Position Dock on Bottom") },
    { "DockPosRight", mark("Position Dock on Right") },
    { "OpenWith", mark("Open With…"), Fills::no, Reason::finderSelection },
    { "MoveTo", mark("Move To…"), Fills::no, Reason::finderSelection },
    { "SelectedFolderContents", mark("Selected Folder Contents"), Fills::no, Reason::finderSelection },
    { "SetDesktopPicture", mark("Set Desktop Picture"), Fills::no, Reason::finderSelection },
    { "Gather", markc("files into a folder", "Gather"), Fills::no, Reason::finderSelection },
    { "PasteAlias", mark("Paste Alias"), Fills::no, Reason::finderSelection },
    { "PreviewImage", mark("Preview Image"), Fills::no, Reason::finderSelection },
    { "AddToZantheVellItems", mark("Add to Zanthe Vell Items"), Fills::no, Reason::services },
    { "MenuCommand", mark("Menu Command"), Fills::no, Reason::carbon },
} };

/// A title that the default menus, the menus to start from or the library store with a kind, beside its default one;
/// po/update takes them from there.
struct ResourceTitle {
    MenuItemKind::Case kind;
    std::string_view title;
};

constexpr ResourceTitle resourceTitles[] = {
    { MenuItemKind::aboutThisMac, "About This Computer" },
    { MenuItemKind::fsObject, "Applications" },
    { MenuItemKind::fsObject, "Home" },
    { MenuItemKind::getMacOSXSoftware, "Distribution Web Page…" },
    { MenuItemKind::getMacOSXSoftware2, "Distribution Web Page…" },
    { MenuItemKind::appStore, "Software…" },
    { MenuItemKind::submenu, "Files and Folders" },
    { MenuItemKind::submenu, "Recent" },
    { MenuItemKind::submenu, "Session" },
    { MenuItemKind::submenu, "System" },
};

std::string textOf(Reason reason)
{
    switch (reason) {
    case Reason::none:
        break;
    case Reason::finderSelection:
        return tr("Acts on the Finder selection. Zanthe delivered this through a contextual menu plug-in, which macOS no longer supports.");
    case Reason::services:
        return tr("Acts on the Finder selection, so it is a macOS Service now instead of a menu item. Right-click a file or folder in the Finder and look "
                  "under Services.");
    case Reason::carbon:
        return tr("Sent a Carbon menu command to the front application. That mechanism was removed with Carbon.");
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

std::string MenuItemKind::defaultTitle() const { return m_case == unknown ? m_unknownText : tr(rows[m_case].defaultTitle); }

std::string MenuItemKind::shownTitle(std::string const& stored) const
{
    if (m_case != unknown && stored == rows[m_case].defaultTitle.english)
        return defaultTitle();
    return gives(stored) ? tr(stored.c_str()) : stored;
}

bool MenuItemKind::gives(std::string_view title) const
{
    auto const stores = [&](auto const& each) { return each.kind == m_case && each.title == title; };
    return (m_case != unknown && title == rows[m_case].defaultTitle.english) || std::any_of(std::begin(resourceTitles), std::end(resourceTitles), stores);
}

std::optional<std::string> MenuItemKind::unavailabilityReason() const
{
    if (m_case == unknown)
        return tr("Unrecognized item kind %1.", quoted(m_unknownText));
    auto const reason = rows[m_case].reason;
    return reason == Reason::none ? std::nullopt : std::optional(textOf(reason));
}

bool MenuItemKind::fillsItself() const { return m_case != unknown && rows[m_case].fills == Fills::itself; }

} // namespace zv
