#include "platform/linux/wayland/ToolkitScreens.h"

#include "platform/linux/wayland/WaylandGlobals.h"

#include <QGuiApplication>
#include <QScreen>

#include <cmath>

namespace zv {

namespace {

QRect primary()
{
    auto const* screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry() : QRect();
}

} // namespace

/// Tells in a later turn: when one screen has moved or changed its size, its neighbours follow one by one, and overlap
/// until then.
ToolkitScreens::ToolkitScreens()
{
    auto const changed = [this] {
        if (onChanged)
            onChanged();
    };
    auto const follow = [this, changed](QScreen* screen) { connect(screen, &QScreen::geometryChanged, this, changed, Qt::QueuedConnection); };
    connect(qGuiApp, &QGuiApplication::screenAdded, this, follow);
    for (auto const change : { &QGuiApplication::screenAdded, &QGuiApplication::screenRemoved })
        connect(qGuiApp, change, this, changed, Qt::QueuedConnection);
    for (auto* screen : QGuiApplication::screens())
        follow(screen);
}

std::vector<Rect> ToolkitScreens::frames() const
{
    std::vector<Rect> frames;
    for (auto const* screen : realScreens())
        frames.push_back(screenRect(screen->geometry()));
    return frames;
}

Rect screenRect(QRect const& rect)
{
    auto const base = primary();
    return { static_cast<double>(rect.x() - base.x()), static_cast<double>(base.y() + base.height() - rect.y() - rect.height()),
        static_cast<double>(rect.width()), static_cast<double>(rect.height()) };
}

QRect toolkitRect(Rect const& rect)
{
    auto const base = primary();
    auto const whole = [](double length) { return static_cast<int>(std::lround(length)); };
    return { base.x() + whole(rect.x), base.y() + base.height() - whole(rect.maxY()), whole(rect.width), whole(rect.height) };
}

} // namespace zv
