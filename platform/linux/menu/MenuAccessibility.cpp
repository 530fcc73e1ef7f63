#include "platform/linux/menu/MenuAccessibility.h"

#include "platform/linux/menu/EntryAccessible.h"
#include "platform/linux/menu/MenuWindow.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMenu>

namespace zv {

namespace {

class ParentInterface : public QAccessibleWidget {
public:
    explicit ParentInterface(QWidget* widget)
        : QAccessibleWidget(widget, QAccessible::Window, QStringLiteral("Zanthe Vell"))
    {
    }
    int childCount() const override { return static_cast<int>(openMenus().size()); }
    QAccessibleInterface* child(int index) const override { return QAccessible::queryAccessibleInterface(openMenus().value(index)); }
    int indexOfChild(QAccessibleInterface const* child) const override
    {
        return child ? static_cast<int>(openMenus().indexOf(qobject_cast<QMenu*>(child->object()))) : -1;
    }

private:
    [[nodiscard]] QList<QMenu*> openMenus() const
    {
        auto menus = widget()->findChildren<QMenu*>(Qt::FindDirectChildrenOnly);
        menus.removeIf([](QMenu const* menu) { return !menu->isVisible(); });
        return menus;
    }
};

QAccessibleInterface* makeInterface(QString const& className, QObject* object)
{
    bool const isOurs = className == QLatin1String(MenuAccessibleParent::staticMetaObject.className());
    auto* action = qobject_cast<QAction*>(object);
    if (action && qobject_cast<MenuWindow*>(action->parent()))
        return new EntryAccessible(*action);
    return isOurs ? new ParentInterface(qobject_cast<QWidget*>(object)) : nullptr;
}

} // namespace

MenuAccessibleParent::MenuAccessibleParent()
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint)
{
    static bool const isInstalled = (QAccessible::installFactory(makeInterface), true);
    Q_UNUSED(isInstalled);
    setAttribute(Qt::WA_DontShowOnScreen);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setAccessibleName(QStringLiteral("Zanthe Vell"));
}

} // namespace zv
