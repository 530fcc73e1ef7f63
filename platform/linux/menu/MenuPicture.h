#pragma once

#include <QPixmap>

#include <functional>

class QMenu;
class QPaintEvent;

namespace zv {

/// A picture of a menu's window as it opens, with nothing selected. Most menus look the next time
/// as they did the last, and showing the picture takes a tenth of the time that drawing takes.
/// Also tells which of the paintings that a window is asked for when it shows are done already.
class MenuPicture {
public:
    /// `isPlain` tells whether the window looks as it does when it opens.
    MenuPicture(QMenu& window, std::function<bool()> isPlain);

    /// The window looks otherwise from now on.
    void spoil() { m_picture = {}; }
    void windowShows() { m_awaitsPaint = m_awaitsUpdate = true; }

    /// Whether this is the first painting of all of a window that shows.
    [[nodiscard]] bool isFirst(QPaintEvent const& event) const;
    /// Whether the picture is what would be drawn.
    [[nodiscard]] bool isCurrent() const;
    void paint() const;
    void firstIsPainted();

    /// The toolkit asks for one update whenever it shows a window; most are painted by then.
    [[nodiscard]] bool isUpdateDone();
    /// A window that is mapped is told twice to show itself. What was asked for before the whole
    /// of it was painted is done by then, and sending it once more takes as long as painting it.
    [[nodiscard]] bool isExposureDone() const { return m_isJustPainted; }

private:
    void take();

    QMenu& m_window;
    std::function<bool()> m_isPlain;
    QPixmap m_picture; ///< null when there is none of how the window looks
    bool m_awaitsPaint = false; ///< as a whole, since it was shown
    bool m_awaitsUpdate = false; ///< the one that comes with being shown
    bool m_isPosing = false; ///< for the picture
    bool m_isJustPainted = false; ///< as a whole, in this turn of the loop
};

} // namespace zv
