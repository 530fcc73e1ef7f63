#pragma once

#include "platform/linux/icons/LaurelIcon.h"
#include "platform/linux/menu/MenuPresenter.h"
#include "platform/linux/toolkit/BusListener.h"
#include "platform/linux/tray/BusMenu.h"
#include "platform/menubar/StatusBar.h"

#include <QDBusServiceWatcher>
#include <QDBusVirtualObject>
#include <QPoint>
#include <QString>
#include <QTimer>

#include <functional>

namespace zv {

/// Our icon in panels that follow the StatusNotifier convention. It registers as soon as there is
/// a watcher, and again whenever the watcher returns or has dropped it.
class StatusNotifierItem : public QDBusVirtualObject, public StatusItem {
    Q_OBJECT
public:
    StatusNotifierItem(QDBusConnection bus, std::string const& name, std::shared_ptr<Menu> menu, MenuPresenter& presenter, MenuPerformer& performer);
    ~StatusNotifierItem() override;

    QString introspect(QString const& path) const override;
    bool handleMessage(QDBusMessage const& message, QDBusConnection const& connection) override;

    /// Has the panel ask for the icon again, once it has taken on a new look of the desktop.
    void redrawSoon();

    /// Called with the position of a click on the icon, in pixels; nothing where that is not told.
    std::function<void(std::optional<QPoint>)> onClicked;

    /// Called with the right to come to the front, which a click on the icon gives on Wayland.
    std::function<void(std::string)> onActivationToken;

    /// Tells how the panel shows the icon best; without it, by its name.
    std::function<LaurelColor()> color;

private:
    [[nodiscard]] QVariantMap properties() const;
    void registerWithWatcher();
    void wasDropped(QString const& item);
    void tellOfNewIcon();
    [[nodiscard]] bool opensMenus() const;
    [[nodiscard]] QString toldMenu() const;
    [[nodiscard]] bool takeToken(QDBusMessage const& message) const;
    [[nodiscard]] bool open(QDBusMessage const& message);

    QDBusConnection m_bus;
    QString m_title;
    std::shared_ptr<Menu> m_menu;
    MenuPresenter& m_presenter;
    BusMenu m_busMenu;
    QString m_name;
    QDBusServiceWatcher m_watcher;
    BusListener m_drops;
    QTimer m_return;
    int m_returns = 0; ///< since the watcher came
    QTimer m_panelRedraws;
};

} // namespace zv
