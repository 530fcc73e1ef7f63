#pragma once

#include "app/menu/DynamicEntry.h"
#include "app/menu/DynamicMenuSource.h"
#include "app/menu/Menu.h"
#include "app/menu/MenuCommands.h"
#include "app/menu/MenuIcon.h"
#include "app/menu/OptionKey.h"
#include "app/model/MenuItem.h"
#include "app/model/Preferences.h"
#include "platform/desk/TextMeasure.h"
#include "platform/files/Resources.h"
#include "platform/session/Workspace.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zv {

class EntryMenus;
struct SubmenuSources;

/// Builds the menu from the user's items, afresh each time it is about to open. Computed parts are
/// left to submenus that fill themselves. Main thread only.
class MenuBuilder {
public:
    struct Services {
        Preferences const& preferences;
        LocationServices locations;
        MenuIcons& icons;
        MenuCommands& commands;
        EntryMenus const& entryMenus;
        Workspace& workspace;
        Resources const& resources;
        TextMeasure const& text;
    };

    /// The identifier of a Quit entry that the user placed.
    static constexpr std::string_view quitIdentifier = "QuitZantheVell";

    /// All arguments outlive the builder, and the builder outlives its menus.
    MenuBuilder(Services services, SubmenuSources const& sources);
    MenuBuilder(MenuBuilder const&) = delete;
    MenuBuilder& operator=(MenuBuilder const&) = delete;

    /// The whole menu: the user's items, then the program's own.
    void buildMenu(Menu& menu, std::vector<MenuItem> const& items, OptionKey option) const;
    /// Empties the menu, then adds an entry a visible item.
    void appendItems(Menu& menu, std::vector<MenuItem> const& items, OptionKey option) const;

    /// The entry of one item, outside any menu.
    [[nodiscard]] MenuEntry entryFor(MenuItem const& item) const { return makeItem(item, OptionKey::released); }

    enum class AppCommands { omitted, included };
    enum class QuitCommand { omitted, included };
    void appendStandardItems(Menu& menu, AppCommands appCommands, QuitCommand quit) const;
    /// True when the menu or a submenu of it holds a Quit entry that the user placed.
    [[nodiscard]] static bool menuContainsQuitItem(Menu const& menu);

    /// The item for an entry of a self-filling submenu. `remainingDepth` levels of folders may
    /// still become submenus below it.
    [[nodiscard]] MenuEntry makeEntryItem(DynamicEntry entry, std::int64_t remainingDepth) const
    {
        return makeEntryItem(std::make_shared<DynamicEntry const>(std::move(entry)), remainingDepth);
    }
    /// The same for an entry in a list, which the list's items share.
    [[nodiscard]] MenuEntry makeEntryItem(
        std::shared_ptr<DynamicEntry const> const& entry, std::int64_t remainingDepth, FolderChoicesRef const& choices = {}) const;
    [[nodiscard]] MenuEntry makeDynamicSubmenuItem(std::string title, DynamicMenuSource source, EntrySubject subject = {}) const;
    /// A disabled item in italics, the reason as its tooltip.
    [[nodiscard]] MenuEntry makeUnavailableFile(DynamicEntry const& entry) const;
    [[nodiscard]] static MenuEntry makeUnavailableItem(std::string title, std::string reason);
    [[nodiscard]] static MenuEntry makeActionItem(std::string title, std::function<void()> run);

    void applyKindIcon(MenuItemKind const& kind, MenuEntry& entry) const;
    void applyCategoryIcon(ApplicationCategory category, MenuEntry& entry) const;
    void applyFileIcon(std::optional<Url> const& url, MenuEntry& entry) const;
    /// Puts the picture that the user gave the item in the place of the entry's own.
    void applyPicture(MenuItem const& item, MenuEntry& entry) const;

    [[nodiscard]] Preferences const& preferences() const { return m_services.preferences; }
    [[nodiscard]] FileSystem const& files() const { return m_services.locations.files; }
    [[nodiscard]] TextMeasure const& text() const { return m_services.text; }

private:
    [[nodiscard]] MenuEntry makeItem(MenuItem const& item, OptionKey option) const;
    [[nodiscard]] MenuEntry makeItemOfKind(MenuItem const& item, OptionKey option) const;
    [[nodiscard]] MenuEntry makeGenericItem(MenuItem const& item, OptionKey option) const;
    [[nodiscard]] MenuEntry makeGroupSubmenu(MenuItem const& item, std::vector<MenuItem> const& children, OptionKey option) const;
    [[nodiscard]] MenuEntry makeCommandItem(MenuItem const& item) const;
    [[nodiscard]] MenuEntry makeFileItem(MenuItem const& item) const;
    [[nodiscard]] MenuEntry makeFileItemForURL(MenuItem const& item, Url url, FileTraits traits) const;
    [[nodiscard]] MenuEntry makeServerFileItem(MenuItem const& item) const;
    /// Needs an entry with a URL or a reason why it is unavailable.
    [[nodiscard]] MenuEntry makeItemWithoutIcon(
        std::shared_ptr<DynamicEntry const> const& entry, std::int64_t remainingDepth, FolderChoicesRef const& choices) const;
    [[nodiscard]] MenuEntry makeSystemInformationItem(MenuItem const& item) const;
    [[nodiscard]] MenuEntry makeQuitItem(MenuItem const& item) const;
    [[nodiscard]] MenuEntry makeCustomizeItem() const;
    [[nodiscard]] MenuEntry makeUpdateItem() const;
    [[nodiscard]] MenuEntry makeTrailingQuitItem() const;
    [[nodiscard]] EntrySubject subjectOf(MenuItem const& item) const;
    [[nodiscard]] std::int64_t depthOf(MenuItem const& item) const;
    [[nodiscard]] std::vector<MenuItem> const& dockChildren() const;

    Services m_services;
    SubmenuSources const& m_sources;
    mutable std::optional<std::vector<MenuItem>> m_dockChildren; ///< loaded on first use
};

} // namespace zv
