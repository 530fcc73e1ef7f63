#include "platform/linux/menu/QtMenuHost.h"

#include "base/Log.h"
#include "platform/linux/menu/MenuPlacement.h"
#include "platform/linux/toolkit/DisplayServer.h"

namespace zv {

void QtMenuHost::popUp(std::shared_ptr<Menu> const& menu, Point at)
{
    if (auto const pixel = pixelOf(at))
        m_presenter.open(menu, *pixel);
}

void QtMenuHost::popUpByKey(std::shared_ptr<Menu> const& menu)
{
    if (canPlaceWindows())
        m_presenter.openByKey(menu);
    else
        logLine("a key can open the menu on X11 only; click its icon in the panel instead");
}

} // namespace zv
