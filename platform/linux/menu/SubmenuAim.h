#pragma once

#include <QPoint>
#include <QRect>

#include <vector>

namespace zv {

/// Tells whether the pointer moves towards an open submenu, within the triangle from its place to
/// the submenu's near side, so that the entries on the way do not take the submenu away.
class SubmenuAim {
public:
    /// Notes the pointer's place on the screen, at a time in milliseconds.
    void moved(QPoint at, qint64 time);
    void clear() { m_trace.clear(); }

    /// Whether the pointer was there when it was noted last.
    [[nodiscard]] bool endsAt(QPoint at) const { return !m_trace.empty() && m_trace.back().at == at; }
    [[nodiscard]] bool isAt(QRect const& submenu) const;

private:
    struct Place {
        QPoint at;
        qint64 time;
    };
    std::vector<Place> m_trace; ///< of the last moment, the latest place last
};

} // namespace zv
