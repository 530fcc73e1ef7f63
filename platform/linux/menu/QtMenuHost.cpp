#include "platform/linux/menu/QtMenuHost.h"

#include "platform/linux/menu/MenuPlacement.h"

namespace zv {

void QtMenuHost::popUp(std::shared_ptr<Menu> const& menu, Point at)
{
    if (auto const pixel = pixelOf(at))
        m_presenter.open(menu, *pixel);
}

} // namespace zv
