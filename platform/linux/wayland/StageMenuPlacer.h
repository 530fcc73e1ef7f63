#pragma once

#include "platform/linux/menu/MenuPlacer.h"
#include "platform/linux/wayland/MenuStage.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <vector>

class QScreen;
class QWindow;
struct wl_surface;

namespace zv {

class WaylandGlobals;

/// Menus on Wayland: they stand on a stage over each screen, which is there as long as they are.
class StageMenuPlacer : public QObject, public MenuPlacer {
    Q_OBJECT
public:
    /// What is known of the desktop where the stage is a maximized window.
    struct Desktop {
        bool isGnome = false; ///< whose tray tells places of the screen
        std::function<std::optional<QPoint>()> pointer; ///< its place on the window; nothing where nobody tells
        std::function<void(wl_surface*)> leaving {}; ///< called while the menus' surface still has the keyboard
    };

    /// The globals outlive it.
    StageMenuPlacer(WaylandGlobals const& globals, Desktop desktop);
    ~StageMenuPlacer() override;

    [[nodiscard]] Reach reach() const override;
    void find(std::optional<QPoint> pixel, Open open) override;
    [[nodiscard]] IconMenu iconMenu() const override;
    [[nodiscard]] std::optional<QPoint> pixelOfClick(QPoint said) const override;
    void leave() override;

    void windowShows(QMenu& menu) override;
    void windowIsShown(QMenu& menu) override;
    void windowHid(QMenu& menu) override;
    [[nodiscard]] bool ownsWindowMoves() const override { return true; }
    void dragBegins() override { letThrough(true); }
    void dragEnds() override { letThrough(false); }

private:
    /// What a menu waits for until it opens.
    struct Search {
        Open open;
        std::optional<QPoint> wish;
        std::optional<QPoint> pointer;
        bool hasKeyboard = false; ///< with it come the modifiers that are held
        bool isPainted = false; ///< of a maximized window, which menus may stand on only then
    };

    void mapStages();
    void addStage(QScreen& screen);
    void clear();
    void lost();
    void tell();
    void settle();
    void openAtOnce();
    void keyboardCame();
    void focusChanged(QWindow* window);
    void letThrough(bool all);
    void keepOnStage(QMenu& menu);
    [[nodiscard]] std::optional<QPoint> placeOf(Search const& search) const;
    [[nodiscard]] MenuStage* stageAt(QPoint point) const;

    WaylandGlobals const& m_globals;
    std::vector<std::unique_ptr<MenuStage>> m_stages;
    MenuStage* m_stage = nullptr; ///< the menus' own
    Desktop m_desktop;
    std::optional<Search> m_search;
    std::optional<QPoint> m_place; ///< of the menu that is open
    std::function<void()> m_again; ///< opens it once more, while the keyboard has not been told
    QTimer m_patience;
};

} // namespace zv
