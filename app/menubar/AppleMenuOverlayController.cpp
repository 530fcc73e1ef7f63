#include "app/menubar/AppleMenuOverlayController.h"

#include "base/MainThread.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace zv {

AppleMenuOverlayController::AppleMenuOverlayController(
    AppleMenuOverlayServices const& services, Preferences const& preferences, std::function<void(Point)> showMenu)
    : m_services(services)
    , m_preferences(preferences)
    , m_showMenu(std::move(showMenu))
    , m_menuBars(services.menuBars, services.screens, services.clock)
    , m_lastChange(services.clock.monotonic())
{
    assertMainThread();
    observeDesktop();
    observePreferences();
    m_pointerMonitor = m_services.pointerMonitor.watch(m_lifetime.guard([this] { pointerMoved(); }));
    sync();
    setHeartbeat(false);
}

AppleMenuOverlayController::~AppleMenuOverlayController()
{
    m_services.screens.onChanged = nullptr;
    m_services.workspaceEvents.onActiveSpaceChanged = nullptr;
    m_services.workspaceEvents.onApplicationActivated = nullptr;
    m_services.menuBars.onChanged = nullptr;
}

void AppleMenuOverlayController::observeDesktop()
{
    auto const record = m_lifetime.guard([this] { syncAndRecord(); });
    m_services.screens.onChanged = m_lifetime.guard([this] {
        m_menuBars.expectOthers(); // a new screen may have one
        syncAndRecord();
    });
    m_services.workspaceEvents.onActiveSpaceChanged = record;
    m_services.workspaceEvents.onApplicationActivated = record;
    // Follows a moving bar from its first step, not from the next slow tick.
    m_services.menuBars.onChanged = m_lifetime.guard([this] {
        m_menuBars.expectOthers();
        heartbeatTick();
    });
}

void AppleMenuOverlayController::observePreferences()
{
    auto const readBoth = [this] {
        (void)m_preferences.replacesAppleMenu();
        (void)m_preferences.drawsRainbowAppleLogo();
    };
    m_preferenceObservation = withObservationTracking(readBoth, m_lifetime.guard([this] {
        observePreferences();
        sync();
        for (auto const& window : m_windows)
            window->redraw();
    }));
}

bool AppleMenuOverlayController::sync()
{
    assertMainThread();
    auto const places = targetPlaces();
    if (places == currentPlaces())
        return false;
    if (places.size() != m_windows.size()) {
        recreateWindows(places);
        return true;
    }
    for (std::size_t i = 0; i < places.size(); ++i)
        m_windows[i]->setPlace(places[i]);
    return true;
}

std::vector<OverlayPlace> AppleMenuOverlayController::targetPlaces()
{
    if (!m_preferences.replacesAppleMenu())
        return {};
    if (m_services.visibility && !m_services.visibility->isMenuBarVisibleOnActiveSpace())
        return {};
    auto const screens = m_services.screens.frames();
    std::vector<OverlayPlace> places;
    for (auto const& bar : menuBarFrames())
        places.push_back(OverlayPlace::on(bar, screens));
    return places;
}

std::vector<OverlayPlace> AppleMenuOverlayController::currentPlaces() const
{
    std::vector<OverlayPlace> places;
    places.reserve(m_windows.size());
    for (auto const& window : m_windows)
        places.push_back(window->place());
    return places;
}

void AppleMenuOverlayController::recreateWindows(std::vector<OverlayPlace> const& places)
{
    for (auto const& window : m_windows)
        window->hide();
    m_windows.clear();
    for (auto const& place : places) {
        m_windows.push_back(makeWindow(place));
        m_windows.back()->show();
    }
}

std::unique_ptr<AppleMenuOverlayWindow> AppleMenuOverlayController::makeWindow(OverlayPlace const& place)
{
    auto window = std::make_unique<AppleMenuOverlayWindow>(m_services.panels, m_preferences, place);
    window->action = m_lifetime.guard([this](Point point) {
        auto const show = m_showMenu; // a copy, as choosing an entry may destroy the controller
        show(point);
    });
    window->setFilesDropped(m_services.filesDropped);
    return window;
}

void AppleMenuOverlayController::setHeartbeat(bool active)
{
    if (active == m_heartbeatIsActive && m_heartbeat)
        return;
    m_heartbeatIsActive = active;
    if (!active && m_services.menuBars.tellsEveryChange())
        m_heartbeat = nullptr;
    else
        m_heartbeat = m_services.timers.every(active ? fastInterval : slowInterval, m_lifetime.guard([this] { heartbeatTick(); }));
}

void AppleMenuOverlayController::heartbeatTick()
{
    syncAndRecord();
    setHeartbeat(m_services.clock.monotonic() - m_lastChange < fastPeriod);
}

void AppleMenuOverlayController::syncAndRecord()
{
    if (sync())
        m_lastChange = m_services.clock.monotonic();
}

void AppleMenuOverlayController::pointerMoved()
{
    bool const isNear = isPointerNearMenuBar();
    if (!isNear && !m_pointerWasNearMenuBar)
        return;
    m_pointerWasNearMenuBar = isNear;
    m_lastChange = m_services.clock.monotonic();
    sync();
    setHeartbeat(true);
}

bool AppleMenuOverlayController::isPointerNearMenuBar() const
{
    auto const pointer = m_services.pointerMonitor.location();
    auto const isNear
        = [pointer](Rect const& screen) { return pointer.x >= screen.minX() && pointer.x <= screen.maxX() && pointer.y >= screen.maxY() - nearDistance; };
    auto const screens = m_services.screens.frames();
    return std::any_of(screens.begin(), screens.end(), isNear);
}

} // namespace zv
