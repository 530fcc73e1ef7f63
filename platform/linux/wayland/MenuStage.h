#pragma once

#include "platform/linux/wayland/LayerSurface.h"

#include <QWidget>

#include <functional>
#include <memory>

class QScreen;

namespace zv {

class WaylandGlobals;

/// A transparent window over a screen, on which menus stand as its child windows: it has the
/// keyboard for them, hears of clicks beside them, and is told where the pointer is. A part of
/// the desktop where the compositor has a layer shell, else a maximized window.
class MenuStage : public QWidget {
    Q_OBJECT
public:
    /// The globals outlive it.
    MenuStage(WaylandGlobals const& globals, QScreen& screen);
    ~MenuStage() override;

    /// False when the compositor refuses.
    bool map();
    /// The origin of its child windows in the toolkit's coordinates.
    [[nodiscard]] QPoint origin() const;
    /// Lets child windows count that have come or moved since it was painted last.
    void commit();
    /// Whether the pointer's buttons and what is dragged reach what lies below it.
    void letThrough(bool all);

    /// Called with the pointer's place in the toolkit's coordinates, as soon as it is known.
    std::function<void(QPoint)> onPointer;
    /// Called when it was painted for the first time.
    std::function<void()> onPainted;
    /// Called when the compositor takes it away.
    std::function<void()> onClosed;

protected:
    void enterEvent(QEnterEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool mapOnLayer();
    void pointerIsAt(QPoint local);

    WaylandGlobals const& m_globals;
    std::unique_ptr<LayerSurface> m_role; ///< null for a maximized window
    bool m_isPainted = false;
};

} // namespace zv
