#include "platform/linux/tray/StatusNotifierBar.h"

#include "platform/linux/tray/StatusNotifierItem.h"

namespace zv {

StatusNotifierBar::StatusNotifierBar(QDBusConnection bus, MenuPresenter& presenter, MenuPerformer& performer)
    : m_bus(std::move(bus))
    , m_presenter(presenter)
    , m_performer(performer)
{
}

std::unique_ptr<StatusItem> StatusNotifierBar::add(std::string const& name, std::shared_ptr<Menu> menu)
{
    if (!m_bus.isConnected())
        return std::make_unique<StatusItem>();
    auto item = std::make_unique<StatusNotifierItem>(m_bus, name, std::move(menu), m_presenter, m_performer);
    item->onClicked = [this](QPoint pixel) { m_lastClick = pixel; };
    return item;
}

} // namespace zv
