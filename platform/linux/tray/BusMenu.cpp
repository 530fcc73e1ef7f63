#include "platform/linux/tray/BusMenu.h"

#include "platform/linux/icons/LaurelIcon.h"
#include "platform/linux/toolkit/BusProperties.h"

#include <QGuiApplication>

namespace zv {

namespace {

QString interfaceName() { return QStringLiteral("com.canonical.dbusmenu"); }

/// The interface with its properties and defaults: libdbusmenu-glib/dbus-menu.xml of
/// https://github.com/AyatanaIndicators/libdbusmenu.
constexpr char const* introspection = R"xml(
<interface name="com.canonical.dbusmenu">
  <property name="Version" type="u" access="read"/>
  <property name="TextDirection" type="s" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="IconThemePath" type="as" access="read"/>
  <method name="GetLayout">
    <arg type="i" name="parentId" direction="in"/>
    <arg type="i" name="recursionDepth" direction="in"/>
    <arg type="as" name="propertyNames" direction="in"/>
    <arg type="u" name="revision" direction="out"/>
    <arg type="(ia{sv}av)" name="layout" direction="out"/>
  </method>
  <method name="GetGroupProperties">
    <arg type="ai" name="ids" direction="in"/>
    <arg type="as" name="propertyNames" direction="in"/>
    <arg type="a(ia{sv})" name="properties" direction="out"/>
  </method>
  <method name="GetProperty">
    <arg type="i" name="id" direction="in"/>
    <arg type="s" name="name" direction="in"/>
    <arg type="v" name="value" direction="out"/>
  </method>
  <method name="Event">
    <arg type="i" name="id" direction="in"/>
    <arg type="s" name="eventId" direction="in"/>
    <arg type="v" name="data" direction="in"/>
    <arg type="u" name="timestamp" direction="in"/>
  </method>
  <method name="EventGroup">
    <arg type="a(isvu)" name="events" direction="in"/>
    <arg type="ai" name="idErrors" direction="out"/>
  </method>
  <method name="AboutToShow">
    <arg type="i" name="id" direction="in"/>
    <arg type="b" name="needUpdate" direction="out"/>
  </method>
  <method name="AboutToShowGroup">
    <arg type="ai" name="ids" direction="in"/>
    <arg type="ai" name="updatesNeeded" direction="out"/>
    <arg type="ai" name="idErrors" direction="out"/>
  </method>
  <signal name="ItemsPropertiesUpdated">
    <arg type="a(ia{sv})" name="updatedProps"/>
    <arg type="a(ias)" name="removedProps"/>
  </signal>
  <signal name="LayoutUpdated">
    <arg type="u" name="revision"/>
    <arg type="i" name="parent"/>
  </signal>
  <signal name="ItemActivationRequested">
    <arg type="i" name="id"/>
    <arg type="u" name="timestamp"/>
  </signal>
</interface>
)xml";

QVariantMap ownProperties()
{
    bool const isRightToLeft = QGuiApplication::layoutDirection() == Qt::RightToLeft;
    return {
        { QStringLiteral("Version"), 3U },
        { QStringLiteral("TextDirection"), isRightToLeft ? QStringLiteral("rtl") : QStringLiteral("ltr") },
        { QStringLiteral("Status"), QStringLiteral("normal") },
        { QStringLiteral("IconThemePath"), QStringList { laurelIconThemePath() } },
    };
}

} // namespace

struct BusMenu::Method {
    char const* name;
    char const* signature;
    QVariantList (BusMenu::*answer)(QVariantList const&);

    [[nodiscard]] static Method const* find(QDBusMessage const& message);
};

BusMenu::Method const* BusMenu::Method::find(QDBusMessage const& message)
{
    static constexpr Method methods[] = {
        { "GetLayout", "iias", &BusMenu::getLayout },
        { "GetGroupProperties", "aias", &BusMenu::getGroupProperties },
        { "GetProperty", "is", &BusMenu::getProperty },
        { "Event", "isvu", &BusMenu::takeEvent },
        { "EventGroup", "a(isvu)", &BusMenu::takeEvents },
        { "AboutToShow", "i", &BusMenu::aboutToShow },
        { "AboutToShowGroup", "ai", &BusMenu::aboutToShowGroup },
    };
    for (auto const& method : methods) {
        if (message.member() == QLatin1String(method.name) && message.signature() == QLatin1String(method.signature))
            return &method;
    }
    return nullptr;
}

BusMenu::BusMenu(QDBusConnection bus, QString path, std::shared_ptr<Menu> menu, MenuPerformer& performer)
    : m_bus(std::move(bus))
    , m_path(std::move(path))
    , m_tree(std::move(menu))
    , m_performer(performer)
{
    registerBusMenuTypes();
    m_tree.onChanged = [this](int id) { announce(id); };
    m_bus.registerVirtualObject(m_path, this);
}

BusMenu::~BusMenu() { m_bus.unregisterObject(m_path); }

QString BusMenu::introspect(QString const& path) const { return path == m_path ? QString::fromLatin1(introspection) : QString(); }

bool BusMenu::handleMessage(QDBusMessage const& message, QDBusConnection const& connection)
{
    if (answerProperties(message, connection, interfaceName(), ownProperties()))
        return true;
    bool const isOurs = message.interface().isEmpty() || message.interface() == interfaceName();
    auto const* method = isOurs ? Method::find(message) : nullptr;
    if (!method)
        return false;
    auto const answer = (this->*method->answer)(message.arguments());
    if (answer.isEmpty() && message.member() == QLatin1String("GetProperty"))
        return connection.send(message.createErrorReply(QDBusError::InvalidArgs, QStringLiteral("There is no such entry or property.")));
    return !message.isReplyRequired() || connection.send(message.createReply(answer));
}

QVariantList BusMenu::getLayout(QVariantList const& arguments)
{
    auto const layout = m_tree.layout(arguments[0].toInt(), arguments[1].toInt(), arguments[2].toStringList());
    return { m_revision, QVariant::fromValue(layout) };
}

QVariantList BusMenu::getGroupProperties(QVariantList const& arguments)
{
    QList<BusMenuProperties> all;
    for (auto const id : qdbus_cast<QList<int>>(arguments[0])) {
        if (m_tree.contains(id))
            all.append({ id, m_tree.properties(id, arguments[1].toStringList()) });
    }
    return { QVariant::fromValue(all) };
}

QVariantList BusMenu::getProperty(QVariantList const& arguments)
{
    auto const name = arguments[1].toString();
    auto const properties = m_tree.properties(arguments[0].toInt(), { name });
    if (!properties.contains(name))
        return {};
    return { QVariant::fromValue(QDBusVariant(properties.value(name))) };
}

QVariantList BusMenu::takeEvent(QVariantList const& arguments)
{
    happened(arguments[0].toInt(), arguments[1].toString());
    return {};
}

QVariantList BusMenu::takeEvents(QVariantList const& arguments)
{
    QList<int> unknown;
    for (auto const& event : qdbus_cast<QList<BusMenuEvent>>(arguments[0])) {
        if (!m_tree.contains(event.id))
            unknown.append(event.id);
        happened(event.id, event.name);
    }
    return { QVariant::fromValue(unknown) };
}

QVariantList BusMenu::aboutToShow(QVariantList const& arguments) { return { fill(arguments[0].toInt()) }; }

QVariantList BusMenu::aboutToShowGroup(QVariantList const& arguments)
{
    QList<int> changed;
    QList<int> unknown;
    for (auto const id : qdbus_cast<QList<int>>(arguments[0])) {
        if (!m_tree.contains(id))
            unknown.append(id);
        else if (fill(id))
            changed.append(id);
    }
    return { QVariant::fromValue(changed), QVariant::fromValue(unknown) };
}

void BusMenu::happened(int id, QString const& name)
{
    if (name == QLatin1String("clicked"))
        choose(id);
    else if (name == QLatin1String("closed"))
        m_tree.closed(id);
}

void BusMenu::choose(int id)
{
    if (auto target = m_tree.target(id))
        m_performer.perform(std::move(target), QGuiApplication::queryKeyboardModifiers());
}

bool BusMenu::fill(int id)
{
    if (!m_tree.aboutToShow(id))
        return false;
    announce(id);
    return true;
}

void BusMenu::announce(int id)
{
    auto signal = QDBusMessage::createSignal(m_path, interfaceName(), QStringLiteral("LayoutUpdated"));
    signal << ++m_revision << id;
    m_bus.send(signal);
}

} // namespace zv
