#pragma once

#include "app/actions/ListCommands.h"
#include "app/actions/NetworkLocations.h"
#include "app/actions/SessionControl.h"
#include "app/actions/ShortcutsProvider.h"
#include "app/actions/SystemEventsBridge.h"
#include "app/menu/MenuCommands.h"
#include "app/model/OwnItems.h"
#include "base/Lifetime.h"
#include "platform/System.h"

#include <functional>
#include <string>
#include <string_view>

namespace zv {

/// Carries out chosen entries. Main thread only.
class MenuActions : public MenuCommands, public ShortcutCommands, public LocationCommands {
public:
    /// Calls to the rest of the program; an empty one does nothing.
    struct Shell {
        std::function<void()> openSettingsWindow;
        std::function<bool()> canCheckForUpdates;
        std::function<void()> checkForUpdates;
        std::function<void(std::string)> chosen; ///< told the identity of each entry that was chosen
    };
    /// All references outlive the actions.
    struct Services {
        System const& system;
        Desk const& desk;
        SessionControl& session;
        SystemEventsBridge& scripts;
        Shell shell;
    };

    explicit MenuActions(Services services);
    ~MenuActions() override;
    MenuActions(MenuActions const&) = delete;
    MenuActions& operator=(MenuActions const&) = delete;

    void byShortcut(std::function<void()> const& requests) override;
    bool perform(MenuItem const& item) override;
    void open(Url const& url) override;
    void open(DynamicEntry const& entry) override;
    void openSettingsWindow() override;
    void terminate() override;
    bool canCheckForUpdates() const override;
    void checkForUpdates() override;
    void runShortcut(std::string const& id, std::string const& name) override;
    void selectLocation(std::string const& id, std::string const& name) override;

    void openSettingsPane(std::string_view anchor);
    void openWebPage(std::string_view text);
    void presentSessionFailure(SessionControl::Failure const& failure, MenuItem const& item);
    void presentScriptFailure(SystemEventsBridge::Failure const& failure, MenuItem const& item);

private:
    enum class HowToOpen { opened, revealed };

    [[nodiscard]] bool isCommandHeld() const;
    [[nodiscard]] HowToOpen howToOpen() const;
    void chosen(std::string identity);
    void open(Url const& url, HowToOpen how);
    void runQuietly(Url const& script);
    void mountAndOpen(BookmarkData const& bookmark);
    bool openLocation(MenuItem const& item);
    bool performInProgram(MenuItem const& item);
    void revealItemsFolder();
    bool sendSessionEvent(MenuItem const& item);
    bool runScript(MenuItem const& item);
    bool openPlace(MenuItem const& item);
    void placeWasNotFound(SystemPlace place, MenuItem const& item);
    void present(Alert const& alert);
    void presentPermissionAlert(MenuItem const& item);
    void askToStart(UntrustedStart const& start);

    Services m_services;
    ShortcutsProvider m_shortcuts;
    NetworkLocations m_networkLocations;
    OwnItems m_ownItems;
    bool m_isByShortcut = false; ///< the modifiers held are the shortcut's
    Lifetime m_lifetime;
};

} // namespace zv
