#pragma once

#include "platform/linux/icons/LaurelIcon.h"
#include "platform/linux/menu/MenuPresenter.h"
#include "platform/menubar/StatusBar.h"

#include <QDBusConnection>
#include <QPoint>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// The status icons in the session's panel. Without a session bus an item is kept, but not shown.
class StatusNotifierBar : public StatusBar {
public:
    StatusNotifierBar(QDBusConnection bus, MenuPresenter& presenter, MenuPerformer& performer);
    std::unique_ptr<StatusItem> add(std::string const& name, std::shared_ptr<Menu> menu, FilesDropped dropped) override;
    /// The place where an icon was last clicked.
    [[nodiscard]] std::optional<QPoint> lastClick() const { return m_lastClick; }
    /// Called with the right to come to the front, which a click on an icon gives on Wayland.
    std::function<void(std::string)> onActivationToken;
    /// Tells how the panel shows the icon best; without it, by its name.
    std::function<LaurelColor()> color;
    /// Called after the desktop's look has changed.
    void redraw();
    /// Shows the items on a new connection, after the former was lost.
    void useBus(QDBusConnection const& bus);

private:
    class Icon;

    QDBusConnection m_bus;
    MenuPresenter& m_presenter;
    MenuPerformer& m_performer;
    std::optional<QPoint> m_lastClick;
    std::vector<Icon*> m_icons;
};

} // namespace zv
