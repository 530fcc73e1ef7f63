#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zv {

/// The kind of a menu item. A text that is not in the table is kept as `unknown` with that text, so
/// that nothing of an older or newer menu is lost.
class MenuItemKind {
public:
    /// To add one (a list of its own: app/lists/AllLists.h):
    /// 1. Here, before `openWith`, and in MenuItemKind.cpp its row in the same place: the text it is stored as, and its title.
    /// 2. app/actions/MenuActions.cpp: what choosing it does; app/menu/MenuBuilder.cpp, if its entry is no plain one, and
    ///    app/menu/MenuIcon.cpp, if it has a picture.
    /// 3. app/resources/Library.plist and "Library (Linux).plist": a record each, so that it can be put into a menu.
    /// MenuActionsTest, MenuIconTest and ItemLibraryTest go through all kinds: what is forgotten fails there.
    enum Case : std::uint8_t {
        separator,
        submenu,
        fsObject,
        zantheVellItems,
        revealZantheVellItems,
        mountedVolumes,
        recentItems,
        recentApps,
        recentDocs,
        recentFolders,
        recentServers,
        runningApplications,
        dockMenu,
        shortcuts,
        ipAddress,
        aboutThisMac,
        appStore,
        getMacOSXSoftware,
        getMacOSXSoftware2,
        softwareUpdate,
        systemPrefs,
        simpleSystemPrefs,
        dockPrefs,
        customizeZantheVell,
        quitZantheVell,
        sleep,
        restart,
        shutdown,
        logOut,
        restartForced,
        shutdownForced,
        logOutForced,
        forceQuit,
        lockScreen,
        location,
        dockMagnification,
        dockHiding,
        dockPosLeft,
        dockPosBottom,
        dockPosRight,
        openWith,
        moveTo,
        selectedFolderContents,
        setDesktopPicture,
        gather,
        pasteAlias,
        previewImage,
        addToZantheVellItems,
        menuCommand,
        unknown,
    };
    static constexpr int fixedCount = unknown; ///< 49

    MenuItemKind(Case value) // NOLINT(google-explicit-constructor): a case is a kind
        : m_case(value)
    {
    }
    [[nodiscard]] static MenuItemKind makeUnknown(std::string text);
    /// Ignores case; a text that is not in the table gives `unknown` with that text.
    [[nodiscard]] static MenuItemKind fromRawValue(std::string_view text);

    [[nodiscard]] Case value() const { return m_case; }
    [[nodiscard]] std::string_view rawValue() const;
    /// In the user's language.
    [[nodiscard]] std::string defaultTitle() const;
    /// The title for an entry that stores one: in the user's language if it is one that our own resources give, as they
    /// are in English; else as it is stored.
    [[nodiscard]] std::string shownTitle(std::string const& stored) const;
    /// True for a title that our own resources give to entries of the kind.
    [[nodiscard]] bool gives(std::string_view title) const;
    /// The reason why the kind can no longer act; absent when it can.
    [[nodiscard]] std::optional<std::string> unavailabilityReason() const;
    /// True for retired commands and `unknown`: kept and shown disabled.
    [[nodiscard]] bool isLegacy() const { return m_case >= openWith; }
    /// True for kinds whose submenu fills itself when it opens (fsObject included).
    [[nodiscard]] bool fillsItself() const;

    friend bool operator==(MenuItemKind const&, MenuItemKind const&) = default;
    friend bool operator==(MenuItemKind const& kind, Case value) { return kind.m_case == value; }

private:
    Case m_case;
    std::string m_unknownText;
};

} // namespace zv
