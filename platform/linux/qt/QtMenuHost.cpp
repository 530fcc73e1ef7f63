#include "platform/linux/qt/QtMenuHost.h"

#include <QGuiApplication>
#include <QScreen>

#include <cmath>

namespace zv {

void QtMenuHost::popUp(std::shared_ptr<Menu> const& menu, Point at)
{
    auto const* primary = QGuiApplication::primaryScreen();
    if (!primary)
        return;
    auto const bottom = primary->geometry().top() + primary->geometry().height() * primary->devicePixelRatio();
    m_presenter.open(menu, { static_cast<int>(std::lround(at.x)), static_cast<int>(std::lround(bottom - at.y)) });
}

} // namespace zv
