#pragma once

#include "platform/desk/Canvas.h"
#include "platform/menubar/MenuBarVisibility.h"
#include "platform/menubar/MenuBars.h"
#include "platform/menubar/OverlayPanels.h"
#include "platform/menubar/PointerMonitor.h"
#include "platform/menubar/Screens.h"
#include "platform/menubar/WorkspaceEvents.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace zv::fakes {

/// Menu bars that a test puts up; counts its calls.
class FakeMenuBars : public MenuBars {
public:
    struct Bar : MenuBar {
        bool isOnScreen = true;
    };

    std::vector<MenuBar> onScreen() const override
    {
        ++scans;
        std::vector<MenuBar> found;
        std::copy_if(bars.begin(), bars.end(), std::back_inserter(found), [](auto const& bar) { return bar.isOnScreen; });
        return found;
    }
    std::optional<Rect> frame(MenuBarID id) const override
    {
        ++lookups;
        auto const found = std::find_if(bars.begin(), bars.end(), [id](auto const& bar) { return bar.id == id; });
        return found != bars.end() && found->isOnScreen ? std::optional(found->frame) : std::nullopt;
    }
    bool tellsEveryChange() const override { return tellsAll; }

    void add(std::optional<MenuBarID> id, Rect const& frame) { bars.push_back({ { frame, id } }); }
    Bar& bar(MenuBarID id)
    {
        return *std::find_if(bars.begin(), bars.end(), [id](auto const& known) { return known.id == id; });
    }

    std::vector<Bar> bars;
    bool tellsAll = false;
    mutable int lookups = 0;
    mutable int scans = 0;
};

class FakeScreens : public Screens {
public:
    std::vector<Rect> frames() const override { return list; }
    std::vector<Rect> list { { 0, 0, 1920, 1080 } };
};

class FakeWorkspaceEvents : public WorkspaceEvents { };

class FakeMenuBarVisibility : public MenuBarVisibility {
public:
    bool isMenuBarVisibleOnActiveSpace() const override { return visible; }
    bool visible = true;
};

class FakePointerMonitor : public PointerMonitor {
public:
    std::unique_ptr<Token> watch(std::function<void()> moved) override
    {
        struct Watching : Token {
            explicit Watching(std::weak_ptr<std::function<void()>> s)
                : slot(std::move(s))
            {
            }
            ~Watching() override
            {
                if (auto const held = slot.lock())
                    *held = nullptr;
            }
            std::weak_ptr<std::function<void()>> slot;
        };
        *m_moved = std::move(moved);
        return std::make_unique<Watching>(m_moved);
    }
    Point location() const override { return m_location; }

    void moveTo(Point location)
    {
        m_location = location;
        if (isWatched())
            (*m_moved)();
    }
    [[nodiscard]] bool isWatched() const { return *m_moved != nullptr; }

private:
    std::shared_ptr<std::function<void()>> m_moved = std::make_shared<std::function<void()>>();
    Point m_location;
};

/// Panels that only record their calls, for as long as they live.
class FakeOverlayPanels : public OverlayPanels {
public:
    struct State {
        Rect frame;
        OverlayPanelContent* content = nullptr;
        bool isShown = false;
        int moves = 0;
        int redraws = 0;
    };

    std::unique_ptr<OverlayPanel> create(Rect const& frame, OverlayPanelContent& content) override
    {
        struct Panel : OverlayPanel {
            explicit Panel(std::shared_ptr<State> s)
                : state(std::move(s))
            {
            }
            Rect frame() const override { return state->frame; }
            void setFrame(Rect const& wanted) override
            {
                state->frame = wanted;
                ++state->moves;
            }
            void show() override { state->isShown = true; }
            void hide() override { state->isShown = false; }
            void redraw() override { ++state->redraws; }
            std::shared_ptr<State> state;
        };
        auto state = std::make_shared<State>(State { frame, &content });
        made.push_back(state);
        return std::make_unique<Panel>(std::move(state));
    }

    [[nodiscard]] std::vector<std::shared_ptr<State>> shown() const
    {
        std::vector<std::shared_ptr<State>> states;
        for (auto const& panel : made) {
            if (auto const state = panel.lock(); state && state->isShown)
                states.push_back(state);
        }
        return states;
    }
    [[nodiscard]] std::vector<Rect> frames() const
    {
        std::vector<Rect> frames;
        for (auto const& panel : shown())
            frames.push_back(panel->frame);
        return frames;
    }

    std::vector<std::weak_ptr<State>> made;
};

/// Records the drawing.
class FakeCanvas : public Canvas {
public:
    struct Fill {
        Color color;
        Rect rect;
    };

    std::shared_ptr<Mask const> logoMask() override { return mask; }
    void saveState() override { ++depth; }
    void restoreState() override { --depth; }
    void clipToMask(Mask const&, Rect const& rect) override { clip = rect; }
    void setFillColor(Color const& wanted) override { color = wanted; }
    void fill(Rect const& rect) override { fills.push_back({ color, rect }); }

    std::shared_ptr<Mask const> mask = std::make_shared<Mask>();
    std::vector<Fill> fills;
    std::optional<Rect> clip;
    Color color;
    int depth = 0;
};

} // namespace zv::fakes
