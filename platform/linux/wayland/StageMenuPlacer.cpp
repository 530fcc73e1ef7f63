#include "platform/linux/wayland/StageMenuPlacer.h"

#include "base/Log.h"
#include "platform/linux/wayland/FreeArea.h"
#include "platform/linux/wayland/WaylandGlobals.h"

#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <utility>

namespace zv {

namespace {

using namespace std::chrono_literals;

/// A surface that appears is told of pointer and keyboard within 30 ms where they are told at all.
constexpr auto patience = 150ms;
constexpr auto patienceForWindow = 1500ms; ///< until a maximized window is painted

/// The toolkit takes a whole screen for free, of which a maximized window leaves out the panels.
void keepWithin(QRect area, QMenu& menu)
{
    menu.setMaximumHeight(area.height());
    int const overhang = menu.geometry().bottom() - area.bottom();
    if (overhang > 0)
        menu.move(menu.x(), std::max(area.top(), menu.y() - overhang));
}

} // namespace

StageMenuPlacer::StageMenuPlacer(WaylandGlobals const& globals, Desktop desktop)
    : m_globals(globals)
    , m_desktop(std::move(desktop))
{
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &StageMenuPlacer::settle);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &StageMenuPlacer::focusChanged);
    for (auto const change : { &QGuiApplication::screenAdded, &QGuiApplication::screenRemoved })
        connect(qGuiApp, change, this, &StageMenuPlacer::lost);
}

StageMenuPlacer::~StageMenuPlacer() = default;

MenuPlacer::Reach StageMenuPlacer::reach() const { return m_globals.layerShell() ? Reach::everywhere : Reach::workArea; }

MenuPlacer::IconMenu StageMenuPlacer::iconMenu() const
{
    if (m_globals.layerShell())
        return IconMenu::ours;
    return m_desktop.isGnome ? IconMenu::oursAlone : IconMenu::panels;
}

/// Panels tell places within themselves, but for GNOME's, which lies above the window.
std::optional<QPoint> StageMenuPlacer::pixelOfClick(QPoint said) const
{
    return iconMenu() == IconMenu::oursAlone ? std::optional(QPoint(said.x(), 0)) : std::nullopt;
}

void StageMenuPlacer::find(std::optional<QPoint> pixel, Open open)
{
    clear();
    if (!pixel && !m_globals.layerShell())
        pixel = m_desktop.pointer();
    m_search = Search { .open = std::move(open), .wish = pixel, .pointer = {}, .hasKeyboard = false, .isPainted = m_globals.layerShell() != nullptr };
    m_patience.start(m_globals.layerShell() ? patience : patienceForWindow);
    mapStages();
    if (pixel && m_globals.layerShell())
        openAtOnce();
}

/// A menu whose place is known is drawn along with its stage, in the compositor's next frame instead of the one after:
/// the keyboard is told only when the stage is there. Who holds a key of Option then, sees it open once more.
void StageMenuPlacer::openAtOnce()
{
    auto const open = m_search->open;
    settle();
    if (m_stage)
        m_again = [open, place = m_place] { open(place); };
}

void StageMenuPlacer::keyboardCame()
{
    auto const again = std::exchange(m_again, nullptr);
    if (again && (QGuiApplication::queryKeyboardModifiers() & (Qt::ShiftModifier | Qt::AltModifier)))
        again();
}

/// On all screens, as a click on any of them closes the menu; a maximized window comes on one.
void StageMenuPlacer::mapStages()
{
    auto const screens = realScreens();
    for (auto* screen : m_globals.layerShell() ? screens : screens.mid(0, 1))
        addStage(*screen);
}

void StageMenuPlacer::addStage(QScreen& screen)
{
    m_stages.push_back(std::make_unique<MenuStage>(m_globals, screen));
    auto& stage = *m_stages.back();
    stage.onPointer = [this](QPoint pointer) {
        if (m_search && !std::exchange(m_search->pointer, pointer))
            tell();
    };
    stage.onPainted = [this] {
        if (!m_search || std::exchange(m_search->isPainted, true))
            return;
        m_patience.start(patience);
        tell();
    };
    stage.onClosed = [this] { QMetaObject::invokeMethod(this, &StageMenuPlacer::lost, Qt::QueuedConnection); };
    if (!stage.map())
        m_stages.pop_back();
}

/// The keyboard's modifiers come right after its focus.
void StageMenuPlacer::focusChanged(QWindow* window)
{
    bool const isOurs = std::ranges::any_of(m_stages, [window](auto const& stage) { return stage->windowHandle() == window; });
    if (isOurs && m_again)
        QMetaObject::invokeMethod(this, &StageMenuPlacer::keyboardCame, Qt::QueuedConnection);
    if (isOurs && m_search && !std::exchange(m_search->hasKeyboard, true))
        tell();
}

/// Opens the menu once all is known; in a later turn, as more of the same comes along.
void StageMenuPlacer::tell()
{
    if (m_search->isPainted && m_search->hasKeyboard && (m_search->wish || m_search->pointer))
        m_patience.start(0);
}

void StageMenuPlacer::settle()
{
    m_again = nullptr;
    if (!m_search)
        return;
    auto const search = *std::exchange(m_search, std::nullopt);
    if (m_stages.empty())
        return logLine("the compositor gives the menu no place");
    m_place = placeOf(search);
    m_stage = stageAt(m_place.value_or(QPoint()));
    search.open(m_place);
}

std::optional<QPoint> StageMenuPlacer::placeOf(Search const& search) const
{
    if (search.wish || !search.pointer)
        return search.wish;
    auto* screen = QGuiApplication::screenAt(*search.pointer);
    bool const hasPanels = screen && m_globals.layerShell();
    return hasPanels ? besidePanelsOf(*screen, freeSizeOf(m_globals, *screen), *search.pointer) : *search.pointer;
}

MenuStage* StageMenuPlacer::stageAt(QPoint point) const
{
    for (auto const& stage : m_stages) {
        if (QRect(stage->origin(), stage->size()).contains(point))
            return stage.get();
    }
    return m_stages.front().get();
}

void StageMenuPlacer::leave()
{
    if (!m_search)
        clear();
}

void StageMenuPlacer::clear()
{
    m_search.reset();
    m_again = nullptr;
    m_patience.stop();
    m_stage = nullptr;
    m_stages.clear();
}

/// Closing the menu leads to leave().
void StageMenuPlacer::lost()
{
    if (m_stages.empty())
        return;
    if (std::exchange(m_search, std::nullopt))
        return clear();
    if (onLost)
        onLost();
}

void StageMenuPlacer::windowShows(QMenu& menu)
{
    if (!m_stage)
        return;
    menu.windowHandle()->setParent(m_stage->windowHandle());
    keepOnStage(menu);
}

void StageMenuPlacer::keepOnStage(QMenu& menu)
{
    if (!m_globals.layerShell())
        keepWithin({ m_stage->origin(), m_stage->size() }, menu);
}

/// The widget counts from the desktop's corner, its native window from the stage's. A menu that has grown is kept on
/// the stage once more.
void StageMenuPlacer::windowIsShown(QMenu& menu)
{
    if (!m_stage || !menu.windowHandle())
        return;
    keepOnStage(menu);
    menu.windowHandle()->setPosition(menu.pos() - m_stage->origin());
    m_stage->commit();
}

/// Else the end of the stage would be that of the window.
void StageMenuPlacer::windowHid(QMenu& menu)
{
    if (menu.windowHandle())
        menu.windowHandle()->setParent(nullptr);
    if (m_stage && m_desktop.leaving && !qobject_cast<QMenu*>(menu.parent()))
        m_desktop.leaving(surfaceOf(*m_stage->windowHandle()));
}

void StageMenuPlacer::letThrough(bool all)
{
    for (auto const& stage : m_stages)
        stage->letThrough(all);
}

} // namespace zv
