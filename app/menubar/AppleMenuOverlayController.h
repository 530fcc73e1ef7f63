#pragma once

#include "app/menubar/AppleMenuOverlayWindow.h"
#include "app/menubar/MenuBarFinder.h"
#include "app/model/Preferences.h"
#include "base/Lifetime.h"
#include "base/Observation.h"
#include "platform/menubar/MenuBarVisibility.h"
#include "platform/menubar/MenuBars.h"
#include "platform/menubar/OverlayPanels.h"
#include "platform/menubar/PointerMonitor.h"
#include "platform/menubar/Screens.h"
#include "platform/menubar/WorkspaceEvents.h"
#include "platform/time/Timers.h"

#include <functional>
#include <memory>
#include <vector>

namespace zv {

/// System services of the overlay. All outlive the controller, the only user of their callbacks.
struct AppleMenuOverlayServices {
    MenuBars& menuBars;
    Screens& screens;
    WorkspaceEvents& workspaceEvents;
    PointerMonitor& pointerMonitor;
    OverlayPanels& panels;
    Timers& timers;
    Clock& clock;
    MenuBarVisibility* visibility = nullptr; ///< null: the menu bars alone decide
    std::function<void(std::vector<Url>)> filesDropped {}; ///< may be empty
};

/// Keeps a nearly invisible window over the left end of every visible menu bar; a click on
/// it shows our menu. Main thread only.
class AppleMenuOverlayController {
public:
    static constexpr double nearDistance = 40;
    static constexpr std::chrono::milliseconds fastInterval { 8 };
    static constexpr std::chrono::milliseconds slowInterval { 100 };
    static constexpr std::chrono::milliseconds fastPeriod { 400 };

    /// `showMenu` receives the point at which the menu opens.
    AppleMenuOverlayController(AppleMenuOverlayServices const& services, Preferences const& preferences, std::function<void(Point)> showMenu);
    ~AppleMenuOverlayController();
    AppleMenuOverlayController(AppleMenuOverlayController const&) = delete;
    AppleMenuOverlayController& operator=(AppleMenuOverlayController const&) = delete;

    /// Updates the windows to match the menu bars; true when anything changed.
    bool sync();
    void setHeartbeat(bool active);
    /// The places that the windows should have now.
    [[nodiscard]] std::vector<OverlayPlace> targetPlaces();
    [[nodiscard]] std::vector<Rect> menuBarFrames() { return m_menuBars.menuBarFrames(); }
    [[nodiscard]] bool isPointerNearMenuBar() const;

private:
    void observeDesktop();
    void observePreferences();
    void syncAndRecord();
    void heartbeatTick();
    void pointerMoved();
    [[nodiscard]] std::vector<OverlayPlace> currentPlaces() const;
    void recreateWindows(std::vector<OverlayPlace> const& places);
    [[nodiscard]] std::unique_ptr<AppleMenuOverlayWindow> makeWindow(OverlayPlace const& place);

    AppleMenuOverlayServices m_services;
    Preferences const& m_preferences;
    std::function<void(Point)> m_showMenu;
    MenuBarFinder m_menuBars;
    std::vector<std::unique_ptr<AppleMenuOverlayWindow>> m_windows; ///< in menu-bar order
    Observation m_preferenceObservation;
    std::unique_ptr<PointerMonitor::Token> m_pointerMonitor;
    bool m_pointerWasNearMenuBar = false;
    std::unique_ptr<Timer> m_heartbeat;
    bool m_heartbeatIsActive = false;
    /// The last time the overlay moved, or the pointer came near a menu bar.
    Instant m_lastChange;
    Lifetime m_lifetime;
};

} // namespace zv
