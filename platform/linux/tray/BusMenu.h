#pragma once

#include "platform/linux/menu/MenuPerformer.h"
#include "platform/linux/tray/BusMenuTree.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>

namespace zv {

/// Serves a menu as com.canonical.dbusmenu, for desktops that draw it themselves.
class BusMenu : public QDBusVirtualObject {
    Q_OBJECT
public:
    BusMenu(QDBusConnection bus, QString path, std::shared_ptr<Menu> menu, MenuPerformer& performer);
    ~BusMenu() override;

    QString introspect(QString const& path) const override;
    bool handleMessage(QDBusMessage const& message, QDBusConnection const& connection) override;

private:
    struct Method;

    QVariantList getLayout(QVariantList const& arguments);
    QVariantList getGroupProperties(QVariantList const& arguments);
    QVariantList getProperty(QVariantList const& arguments);
    QVariantList takeEvent(QVariantList const& arguments);
    QVariantList takeEvents(QVariantList const& arguments);
    QVariantList aboutToShow(QVariantList const& arguments);
    QVariantList aboutToShowGroup(QVariantList const& arguments);

    void happened(int id, QString const& name);
    void choose(int id);
    bool fill(int id);
    void announce(int id);

    QDBusConnection m_bus;
    QString m_path;
    BusMenuTree m_tree;
    MenuPerformer& m_performer;
    uint m_revision = 1;
};

} // namespace zv
