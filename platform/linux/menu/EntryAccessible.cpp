#include "platform/linux/menu/EntryAccessible.h"

#include "platform/linux/menu/EntryAction.h"
#include "platform/linux/menu/MenuWindow.h"

#include <QAction>

namespace zv {

namespace {

/// The text without the marks that make a letter of it a key, which are doubled in titles.
QString withoutMarks(QString text) { return text.replace(QLatin1String("&&"), QLatin1String("&")); }

} // namespace

EntryAccessible::EntryAccessible(QAction& action)
    : QAccessibleObject(&action)
{
}

QAction* EntryAccessible::action() const { return qobject_cast<QAction*>(object()); }

MenuWindow* EntryAccessible::menuWindow() const { return action() ? qobject_cast<MenuWindow*>(action()->parent()) : nullptr; }

bool EntryAccessible::isValid() const { return menuWindow() != nullptr; }

QAccessibleInterface* EntryAccessible::parent() const { return QAccessible::queryAccessibleInterface(menuWindow()); }

QAccessibleInterface* EntryAccessible::child(int index) const
{
    return index == 0 && childCount() == 1 ? QAccessible::queryAccessibleInterface(action()->menu()) : nullptr;
}

int EntryAccessible::childCount() const { return action()->menu() ? 1 : 0; }

int EntryAccessible::indexOfChild(QAccessibleInterface const* child) const { return child && child->object() == action()->menu() ? 0 : -1; }

QAccessible::Role EntryAccessible::role() const
{
    if (action()->isSeparator())
        return QAccessible::Separator;
    return action()->statusTip().isEmpty() ? QAccessible::MenuItem : QAccessible::Notification;
}

QAccessible::State EntryAccessible::state() const
{
    QAccessible::State state;
    auto const* submenu = action()->menu();
    state.invisible = !menuWindow()->isVisible() || !action()->isVisible();
    state.focused = menuWindow()->activeAction() == action();
    state.focusable = state.selectable = action()->isEnabled() || (menuWindow()->selectsDisabled() && !action()->isSeparator());
    state.disabled = action()->isSeparator() || !action()->isEnabled();
    state.checkable = action()->isCheckable();
    state.checked = action()->isChecked();
    state.hasPopup = state.expandable = submenu != nullptr;
    state.expanded = submenu && submenu->isVisible();
    state.collapsed = submenu && !submenu->isVisible();
    return state;
}

QRect EntryAccessible::rect() const { return menuWindow()->actionGeometry(action()).translated(menuWindow()->mapToGlobal(QPoint())); }

QString EntryAccessible::text(QAccessible::Text text) const
{
    auto const* entry = dynamic_cast<EntryAction const*>(action());
    bool const isFound = entry && !entry->spokenWay().isEmpty();
    if (text == QAccessible::Name && !action()->statusTip().isEmpty())
        return action()->statusTip();
    if (text == QAccessible::Name)
        return withoutMarks(action()->text()) + (isFound ? QLatin1String(", ") + entry->spokenWay() : QString());
    return text == QAccessible::Accelerator && entry && !isFound ? entry->column() : QString();
}

void* EntryAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList EntryAccessible::actionNames() const
{
    if (action()->isSeparator() || role() == QAccessible::Notification)
        return {};
    return { action()->menu() ? showMenuAction() : pressAction() };
}

void EntryAccessible::doAction(QString const& name)
{
    if (!action()->isEnabled() || !actionNames().contains(name))
        return;
    auto* submenu = action()->menu();
    if (!submenu) {
        action()->trigger();
        menuWindow()->closeAll();
    } else if (submenu->isVisible())
        submenu->hide();
    else
        menuWindow()->setActiveAction(action());
}

void announceSubmenu(MenuWindow& submenu)
{
    if (!QAccessible::isActive())
        return;
    QAccessible::State changed;
    changed.expanded = changed.collapsed = true;
    QAccessibleStateChangeEvent event(submenu.menuAction(), changed);
    QAccessible::updateAccessibility(&event);
}

void announceText(QAction& line)
{
    if (!QAccessible::isActive() || line.statusTip().isEmpty())
        return;
    for (auto const type : { QAccessible::NameChanged, QAccessible::ObjectShow }) {
        QAccessibleEvent event(&line, type);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace zv
