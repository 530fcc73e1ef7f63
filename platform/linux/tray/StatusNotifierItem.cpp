#include "platform/linux/tray/StatusNotifierItem.h"

#include "platform/linux/toolkit/BusProperties.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusObjectPath>

namespace zv {

namespace {

/// The item and its watcher: https://specifications.freedesktop.org/status-notifier-item-spec,
/// under KDE's names, which all panels know.
QString interfaceName() { return QStringLiteral("org.kde.StatusNotifierItem"); }

QString itemPath() { return QStringLiteral("/StatusNotifierItem"); }

QString menuPath() { return QStringLiteral("/StatusNotifierItem/Menu"); }

QString watcherName() { return QStringLiteral("org.kde.StatusNotifierWatcher"); }

QString watcherPath() { return QStringLiteral("/StatusNotifierWatcher"); }

constexpr std::chrono::seconds panelsRedrawing { 1 };
constexpr std::chrono::milliseconds dropped { 200 };
constexpr int mostReturns = 5;

/// A new name for each showing, as releasing the name removes the icon.
QString nextBusName()
{
    static int count = 0;
    return QStringLiteral("org.kde.StatusNotifierItem-%1-%2").arg(QCoreApplication::applicationPid()).arg(++count);
}

/// The interface "StatusNotifierItem" there; IconAccessibleDesc comes from
/// src/notification-item.xml of https://github.com/AyatanaIndicators/libayatana-appindicator.
constexpr char const* introspection = R"xml(
<interface name="org.kde.StatusNotifierItem">
  <property name="Category" type="s" access="read"/>
  <property name="Id" type="s" access="read"/>
  <property name="Title" type="s" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="WindowId" type="i" access="read"/>
  <property name="IconThemePath" type="s" access="read"/>
  <property name="IconName" type="s" access="read"/>
  <property name="IconAccessibleDesc" type="s" access="read"/>
  <property name="IconPixmap" type="a(iiay)" access="read"/>
  <property name="OverlayIconName" type="s" access="read"/>
  <property name="OverlayIconPixmap" type="a(iiay)" access="read"/>
  <property name="AttentionIconName" type="s" access="read"/>
  <property name="AttentionIconPixmap" type="a(iiay)" access="read"/>
  <property name="AttentionMovieName" type="s" access="read"/>
  <property name="ToolTip" type="(sa(iiay)ss)" access="read"/>
  <property name="ItemIsMenu" type="b" access="read"/>
  <property name="Menu" type="o" access="read"/>
  <method name="ContextMenu"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
  <method name="Activate"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
  <method name="SecondaryActivate"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
  <method name="ProvideXdgActivationToken"><arg name="token" type="s" direction="in"/></method>
  <method name="Scroll"><arg name="delta" type="i" direction="in"/><arg name="orientation" type="s" direction="in"/></method>
  <signal name="NewTitle"/>
  <signal name="NewIcon"/>
  <signal name="NewToolTip"/>
  <signal name="NewStatus"><arg name="status" type="s"/></signal>
</interface>
)xml";

/// The toolkit would call the interface unknown; GNOME's panel then does not go on to SecondaryActivate from a method
/// of Ayatana's that it tries first.
QDBusMessage unknownMethod(QDBusMessage const& message)
{
    return message.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("There is no such method."));
}

} // namespace

StatusNotifierItem::StatusNotifierItem(
    QDBusConnection bus, std::string const& name, std::shared_ptr<Menu> menu, MenuPresenter& presenter, MenuPerformer& performer)
    : m_bus(std::move(bus))
    , m_title(QString::fromStdString(name))
    , m_menu(std::move(menu))
    , m_presenter(presenter)
    , m_busMenu(m_bus, menuPath(), m_menu, performer)
    , m_name(nextBusName())
    , m_watcher(watcherName(), m_bus, QDBusServiceWatcher::WatchForRegistration)
    , m_drops(m_bus, watcherName(), watcherPath(), watcherName(), QStringLiteral("StatusNotifierItemUnregistered"),
          [this](QDBusMessage const& said) { wasDropped(said.arguments().value(0).toString()); })
{
    registerStatusPixmapTypes();
    m_bus.registerVirtualObject(itemPath(), this);
    m_bus.registerService(m_name);
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] {
        m_returns = 0;
        registerWithWatcher();
    });
    m_return.setSingleShot(true);
    connect(&m_return, &QTimer::timeout, this, &StatusNotifierItem::registerWithWatcher);
    m_panelRedraws.setSingleShot(true);
    connect(&m_panelRedraws, &QTimer::timeout, this, &StatusNotifierItem::tellOfNewIcon);
    registerWithWatcher();
}

StatusNotifierItem::~StatusNotifierItem()
{
    m_bus.unregisterService(m_name);
    m_bus.unregisterObject(itemPath());
}

/// Registers the item; without a watcher the call fails, and is repeated when one appears.
void StatusNotifierItem::registerWithWatcher()
{
    auto call = QDBusMessage::createMethodCall(watcherName(), watcherPath(), watcherName(), QStringLiteral("RegisterStatusNotifierItem"));
    call.setAutoStartService(false);
    call << m_name;
    m_bus.asyncCall(call);
}

/// https://github.com/ubuntu/gnome-shell-extension-appindicator compares a property that it has emptied ("Argument two may not
/// be null") and drops the item, one time in five, where it hears of our name only after our properties.
void StatusNotifierItem::wasDropped(QString const& item)
{
    bool const isOurs = item == m_name || item == m_name + itemPath();
    if (isOurs && m_returns++ < mostReturns)
        m_return.start(dropped);
}

void StatusNotifierItem::redrawSoon() { m_panelRedraws.start(panelsRedrawing); }

void StatusNotifierItem::tellOfNewIcon() { m_bus.send(QDBusMessage::createSignal(itemPath(), interfaceName(), QStringLiteral("NewIcon"))); }

QString StatusNotifierItem::introspect(QString const& path) const { return path == itemPath() ? QString::fromLatin1(introspection) : QString(); }

QVariantMap StatusNotifierItem::properties() const
{
    auto const noPixmaps = QVariant::fromValue(StatusPixmaps());
    auto const ink = color ? color() : LaurelColor::ofThePanel;
    auto const iconName = ink == LaurelColor::ofThePanel ? laurelSymbolName() : QString();
    return {
        { QStringLiteral("Category"), QStringLiteral("ApplicationStatus") },
        { QStringLiteral("Id"), QStringLiteral("org.zanthevell.ZantheVell") },
        { QStringLiteral("Title"), m_title },
        { QStringLiteral("Status"), QStringLiteral("Active") },
        { QStringLiteral("WindowId"), 0 },
        { QStringLiteral("IconThemePath"), laurelIconThemePath() },
        { QStringLiteral("IconName"), iconName },
        { QStringLiteral("IconAccessibleDesc"), m_title },
        { QStringLiteral("IconPixmap"), QVariant::fromValue(laurelStatusPixmaps(ink)) },
        { QStringLiteral("OverlayIconName"), QString() },
        { QStringLiteral("OverlayIconPixmap"), noPixmaps },
        { QStringLiteral("AttentionIconName"), QString() },
        { QStringLiteral("AttentionIconPixmap"), noPixmaps },
        { QStringLiteral("AttentionMovieName"), QString() },
        { QStringLiteral("ToolTip"), QVariant::fromValue(StatusToolTip { iconName, {}, m_title, {} }) },
        { QStringLiteral("ItemIsMenu"), !opensMenus() },
        { QStringLiteral("Menu"), QVariant::fromValue(QDBusObjectPath(toldMenu())) },
    };
}

bool StatusNotifierItem::handleMessage(QDBusMessage const& message, QDBusConnection const& connection)
{
    if (message.interface() == QLatin1String("org.freedesktop.DBus.Properties"))
        return answerProperties(message, connection, interfaceName(), properties());
    if (!message.interface().isEmpty() && message.interface() != interfaceName())
        return false;
    bool const isKnown = message.member() == QLatin1String("Scroll") || takeToken(message) || open(message);
    if (!message.isReplyRequired())
        return isKnown;
    return connection.send(isKnown ? message.createReply() : unknownMethod(message));
}

/// Comes before the click that it is for; KDE's panels and GNOME's extension send it.
bool StatusNotifierItem::takeToken(QDBusMessage const& message) const
{
    if (message.member() != QLatin1String("ProvideXdgActivationToken") || message.signature() != QLatin1String("s"))
        return false;
    if (onActivationToken)
        onActivationToken(message.arguments()[0].toString().toStdString());
    return true;
}

/// Elsewhere the panel draws the menu, as ours might not come up beside the icon.
bool StatusNotifierItem::opensMenus() const { return m_presenter.placer().iconMenu() != MenuPlacer::IconMenu::panels; }

/// https://github.com/ubuntu/gnome-shell-extension-appindicator draws a menu at a single click wherever it is told of one,
/// and takes this path for none.
QString StatusNotifierItem::toldMenu() const
{
    return m_presenter.placer().iconMenu() == MenuPlacer::IconMenu::oursAlone ? QStringLiteral("/NO_DBUSMENU") : menuPath();
}

/// Opens our own menu; a middle click stands for Option.
bool StatusNotifierItem::open(QDBusMessage const& message)
{
    auto const member = message.member();
    bool const isSecondary = member == QLatin1String("SecondaryActivate");
    bool const opens = isSecondary || member == QLatin1String("Activate") || member == QLatin1String("ContextMenu");
    if (!opens || message.signature() != QLatin1String("ii") || !opensMenus())
        return false;
    auto const pixel = m_presenter.placer().pixelOfClick({ message.arguments()[0].toInt(), message.arguments()[1].toInt() });
    if (onClicked)
        onClicked(pixel);
    // Later than the answer: a panel may wait for it while it still holds the pointer.
    QMetaObject::invokeMethod(
        this, [this, pixel, isSecondary] { m_presenter.open(m_menu, pixel, isSecondary ? ModifierMask::option : ModifierMask::none); }, Qt::QueuedConnection);
    return true;
}

} // namespace zv
