#include "platform/linux/overlay/OverlayAccessible.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QAccessibleObject>

namespace zv {

namespace {

class OverlayInterface : public QAccessibleObject, public QAccessibleActionInterface {
public:
    explicit OverlayInterface(OverlayAccessible* window)
        : QAccessibleObject(window)
    {
    }

    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(qApp); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(QAccessibleInterface const*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::MenuItem; }
    QRect rect() const override { return stand().visibleRect(); }
    QString text(QAccessible::Text text) const override
    {
        auto const label = stand().content().accessibilityLabel();
        return text == QAccessible::Name ? QString::fromUtf8(label.data(), static_cast<qsizetype>(label.size())) : QString();
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.hasPopup = true;
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }

    QStringList actionNames() const override { return { pressAction() }; }
    /// Performs later: the menu must not block the assistive program, nor may it outlive us.
    void doAction(QString const& name) override
    {
        if (name == pressAction())
            QMetaObject::invokeMethod(
                object(), [this] { stand().content().press(); }, Qt::QueuedConnection);
    }
    QStringList keyBindingsForAction(QString const&) const override { return {}; }

private:
    OverlayAccessible& stand() const { return *static_cast<OverlayAccessible*>(object()); }
};

QAccessibleInterface* makeInterface(QString const&, QObject* object)
{
    auto* window = dynamic_cast<OverlayAccessible*>(object);
    return window ? new OverlayInterface(window) : nullptr;
}

} // namespace

OverlayAccessible::OverlayAccessible(OverlayPanelContent& content)
    : m_content(content)
{
    static bool const isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    (void)isInstalled;
}

OverlayAccessible::~OverlayAccessible()
{
    QAccessibleEvent gone(this, QAccessible::ObjectDestroyed);
    QAccessible::updateAccessibility(&gone);
}

QAccessibleInterface* OverlayAccessible::accessibleRoot() const { return QAccessible::queryAccessibleInterface(const_cast<OverlayAccessible*>(this)); }

} // namespace zv
