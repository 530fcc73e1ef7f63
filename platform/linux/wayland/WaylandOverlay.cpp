#include "platform/linux/wayland/WaylandOverlay.h"

#include "platform/linux/wayland/ForeignToplevels.h"
#include "platform/linux/wayland/FreeArea.h"
#include "platform/linux/wayland/LayerCorners.h"
#include "platform/linux/wayland/ToolkitScreens.h"
#include "platform/linux/wayland/WaylandGlobals.h"

#include <QGuiApplication>
#include <QScreen>

#include <utility>

namespace zv {

namespace {

constexpr int usualHeight = 30;
constexpr int lowestPanel = 16;
constexpr int highestPanel = 64;

/// A bar along the top of each screen, as high as its panel. No panel is known by itself, so a
/// bar is there without one, too; it is gone while a window fills the screen.
class LayerMenuBars : public MenuBars {
public:
    LayerMenuBars(WaylandGlobals const& globals, ForeignToplevels const* toplevels)
        : m_globals(globals)
        , m_toplevels(toplevels)
    {
    }

    std::vector<MenuBar> onScreen() const override
    {
        m_heights.clear();
        std::vector<MenuBar> bars;
        MenuBarID id = 0;
        for (auto* screen : realScreens()) {
            m_heights.push_back(heightOn(*screen));
            if (auto const shown = frame(id))
                bars.push_back({ *shown, id });
            ++id;
        }
        return bars;
    }

    std::optional<Rect> frame(MenuBarID id) const override
    {
        auto const screens = realScreens();
        if (id >= static_cast<MenuBarID>(screens.size()) || id >= m_heights.size())
            return std::nullopt;
        auto* screen = screens[static_cast<qsizetype>(id)];
        if (m_toplevels && m_toplevels->isFilled(outputOf(*screen)))
            return std::nullopt;
        auto const whole = screen->geometry();
        return screenRect({ whole.topLeft(), QSize(whole.width(), m_heights[id]) });
    }
    /// By the windows: what fills a screen is all that takes a bar away.
    bool tellsEveryChange() const override { return true; }

private:
    [[nodiscard]] int heightOn(QScreen& screen) const
    {
        int const claimed = screen.size().height() - freeSizeOf(m_globals, screen).height();
        return claimed >= lowestPanel && claimed <= highestPanel ? claimed : usualHeight;
    }

    WaylandGlobals const& m_globals;
    ForeignToplevels const* m_toplevels;
    mutable std::vector<int> m_heights; ///< a screen each, of the last look at them
};

/// No pointer is told while it is over other programs.
class NoPointer : public PointerMonitor {
public:
    std::unique_ptr<Token> watch(std::function<void()>) override { return nullptr; }
    Point location() const override { return {}; }
};

class WaylandOverlay : public OverlayFrontEnd {
public:
    WaylandOverlay(WaylandGlobals const& globals, std::shared_ptr<ForeignToplevels> toplevels)
        : m_toplevels(std::move(toplevels))
        , m_menuBars(globals, m_toplevels.get())
        , m_corners(globals)
    {
        if (m_toplevels)
            m_toplevels->onChanged = [this] { windowsChanged(); };
    }
    ~WaylandOverlay() override
    {
        if (m_toplevels)
            m_toplevels->onChanged = nullptr;
    }
    OverlaySeams seams() override
    {
        return {
            .menuBars = m_menuBars, .screens = m_screens, .workspaceEvents = m_events, .pointerMonitor = m_pointer, .panels = m_corners, .visibility = nullptr
        };
    }
    void pressAt(QPoint point) override { m_corners.pressAt(point); }

private:
    void windowsChanged() const
    {
        if (m_events.onApplicationActivated)
            m_events.onApplicationActivated();
    }

    std::shared_ptr<ForeignToplevels> m_toplevels;
    ToolkitScreens m_screens;
    LayerMenuBars m_menuBars;
    WorkspaceEvents m_events;
    NoPointer m_pointer;
    LayerCorners m_corners;
};

} // namespace

std::unique_ptr<OverlayFrontEnd> waylandOverlay(WaylandGlobals const& globals, std::shared_ptr<ForeignToplevels> toplevels)
{
    return globals.layerShell() ? std::make_unique<WaylandOverlay>(globals, std::move(toplevels)) : nullptr;
}

} // namespace zv
