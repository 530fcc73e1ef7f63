#include "platform/linux/menu/QtMenuHost.h"

#include "base/Log.h"
#include "platform/linux/menu/MenuPlacement.h"

namespace zv {

void QtMenuHost::popUp(std::shared_ptr<Menu> const& menu, Point at)
{
    if (auto const pixel = pixelOf(at))
        m_presenter.open(menu, *pixel);
}

void QtMenuHost::popUpByKey(std::shared_ptr<Menu> const& menu)
{
    if (m_presenter.placer().reach() != MenuPlacer::Reach::nowhere)
        m_presenter.openByKey(menu);
    else
        logLine("no window can be shown here; click the icon in the panel instead");
}

} // namespace zv
