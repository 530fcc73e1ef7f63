#pragma once

#include <QAccessibleActionInterface>
#include <QAccessibleObject>

class QAction;

namespace zv {

class MenuWindow;

/// An action of our menus to assistive tools. Unlike the toolkit's, it tells that an entry opens a
/// submenu, and which keys an entry has. The line with the typed text is a notification, whose
/// text is the action's status tip.
class EntryAccessible : public QAccessibleObject, public QAccessibleActionInterface {
public:
    explicit EntryAccessible(QAction& action);

    bool isValid() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    int childCount() const override;
    int indexOfChild(QAccessibleInterface const* child) const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QRect rect() const override;
    QString text(QAccessible::Text text) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(QString const& name) override;
    QStringList keyBindingsForAction(QString const&) const override { return {}; }

private:
    [[nodiscard]] QAction* action() const;
    [[nodiscard]] MenuWindow* menuWindow() const;
};

/// Tells assistive tools that the submenu of an entry opened or closed.
void announceSubmenu(MenuWindow& submenu);
/// Tells them what the line with the typed text says now.
void announceText(QAction& line);

} // namespace zv
