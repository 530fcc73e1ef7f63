#include "platform/linux/tray/StatusNotifierBar.h"

#include "platform/linux/tray/StatusNotifierItem.h"

namespace zv {

/// A status item: shown while there is a bus.
class StatusNotifierBar::Icon : public StatusItem {
public:
    Icon(StatusNotifierBar& bar, std::string name, std::shared_ptr<Menu> menu)
        : m_bar(bar)
        , m_name(std::move(name))
        , m_menu(std::move(menu))
    {
        m_bar.m_icons.push_back(this);
        show();
    }
    ~Icon() override { std::erase(m_bar.m_icons, this); }

    void redraw()
    {
        if (m_shown)
            m_shown->redrawSoon();
    }

    void show()
    {
        m_shown.reset(); // leaves its place before the next one takes it
        if (!m_bar.m_bus.isConnected())
            return;
        m_shown = std::make_unique<StatusNotifierItem>(m_bar.m_bus, m_name, m_menu, m_bar.m_presenter, m_bar.m_performer);
        m_shown->onClicked = [&bar = m_bar](std::optional<QPoint> pixel) { bar.m_lastClick = pixel; };
        m_shown->onActivationToken = m_bar.onActivationToken;
        m_shown->color = m_bar.color;
    }

private:
    StatusNotifierBar& m_bar;
    std::string m_name;
    std::shared_ptr<Menu> m_menu;
    std::unique_ptr<StatusNotifierItem> m_shown;
};

StatusNotifierBar::StatusNotifierBar(QDBusConnection bus, MenuPresenter& presenter, MenuPerformer& performer)
    : m_bus(std::move(bus))
    , m_presenter(presenter)
    , m_performer(performer)
{
}

/// No panel tells an item what is dropped on its icon.
std::unique_ptr<StatusItem> StatusNotifierBar::add(std::string const& name, std::shared_ptr<Menu> menu, FilesDropped)
{
    return std::make_unique<Icon>(*this, name, std::move(menu));
}

void StatusNotifierBar::redraw()
{
    for (auto* const icon : m_icons)
        icon->redraw();
}

void StatusNotifierBar::useBus(QDBusConnection const& bus)
{
    m_bus = bus;
    for (auto* const icon : m_icons)
        icon->show();
}

} // namespace zv
