#pragma once

#include <QPixmap>

#include <functional>

class QMenu;
class QPaintEvent;

namespace zv {

/// A picture of a menu's window as it opens, with nothing selected. Most menus look as they did
/// the last time, and showing the picture takes a tenth of the time that drawing takes. Also
/// tells which of the paintings requested at showing are already done.
class MenuPicture {
public:
    /// `isPlain` tells whether the window looks as it does when it opens.
    MenuPicture(QMenu& window, std::function<bool()> isPlain);

    /// Drops the picture, as the window's look has changed.
    void spoil() { m_picture = {}; }
    void windowShows() { m_awaitsPaint = m_awaitsUpdate = true; }

    /// Whether this is the first full painting since the window was shown.
    [[nodiscard]] bool isFirst(QPaintEvent const& event) const;
    /// Whether the picture equals a fresh drawing.
    [[nodiscard]] bool isCurrent() const;
    void paint() const;
    /// Takes the picture of a hidden window that has its size.
    void takeUnseen();
    void firstIsPainted();

    /// Whether to skip the update that the toolkit requests at each showing; most windows are painted by then.
    [[nodiscard]] bool isUpdateDone();
    /// Whether to skip an exposure: mapping a window causes two. After a full painting the second
    /// is done, and sending the window again takes as long as painting it.
    [[nodiscard]] bool isExposureDone() const { return m_isJustPainted; }

private:
    void take();

    QMenu& m_window;
    std::function<bool()> m_isPlain;
    QPixmap m_picture; ///< null when there is none of the current look
    bool m_awaitsPaint = false; ///< a full painting, since the window was shown
    bool m_awaitsUpdate = false; ///< the update requested at showing
    bool m_isPosing = false; ///< while the picture is taken
    bool m_isJustPainted = false; ///< in full, in this turn of the loop
};

} // namespace zv
