#include "platform/linux/qt/QtMenuHost.h"

#include "platform/linux/qt/MenuPlacement.h"

namespace zv {

void QtMenuHost::popUp(std::shared_ptr<Menu> const& menu, Point at)
{
    if (auto const pixel = pixelOf(at))
        m_presenter.open(menu, *pixel);
}

} // namespace zv
