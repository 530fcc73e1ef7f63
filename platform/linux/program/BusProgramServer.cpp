#include "platform/linux/program/BusProgramServer.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusVirtualObject>

namespace zv {

namespace {

QString programName() { return QStringLiteral("org.zanthevell.ZantheVell"); }

QString programPath() { return QStringLiteral("/org/zanthevell/ZantheVell"); }

/// Our own interface, and the one for activation by bus name:
/// https://specifications.freedesktop.org/desktop-entry-spec, "D-Bus Activation".
constexpr char const* introspection = R"xml(
<interface name="org.zanthevell.ZantheVell">
  <method name="ShowMenu"/>
  <method name="ShowMenuAt"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
  <method name="TakeActivationToken"><arg name="token" type="s" direction="in"/></method>
  <method name="OpenSettings"/>
  <method name="Quit"/>
  <method name="AddFiles"><arg name="files" type="as" direction="in"/></method>
  <method name="Hotkeys"><arg name="json" type="s" direction="out"/></method>
</interface>
<interface name="org.freedesktop.Application">
  <method name="Activate"><arg name="platformData" type="a{sv}" direction="in"/></method>
  <method name="Open"><arg name="uris" type="as" direction="in"/><arg name="platformData" type="a{sv}" direction="in"/></method>
  <method name="ActivateAction">
    <arg name="name" type="s" direction="in"/>
    <arg name="parameter" type="av" direction="in"/>
    <arg name="platformData" type="a{sv}" direction="in"/>
  </method>
</interface>
)xml";

/// The file of an absolute path, or of an address.
std::optional<Url> fileNamed(std::string const& name) { return name.starts_with('/') ? Url::fromPath(name) : Url::parse(name); }

} // namespace

struct BusProgramServer::Method {
    char const* interface;
    char const* name;
    char const* signature;
    Answer (BusProgramServer::*answer)(QVariantList const&); ///< null: answered by the reception

    [[nodiscard]] static Method const* find(QDBusMessage const& message)
    {
        constexpr char const* own = "org.zanthevell.ZantheVell";
        constexpr char const* desktop = "org.freedesktop.Application";
        static constexpr Method methods[] = {
            { own, "ShowMenu", "", &BusProgramServer::showMenu },
            { own, "ShowMenuAt", "ii", &BusProgramServer::showMenuAt },
            { own, "TakeActivationToken", "s", &BusProgramServer::takeActivationToken },
            { own, "OpenSettings", "", &BusProgramServer::openSettings },
            { own, "Quit", "", &BusProgramServer::quit },
            { own, "AddFiles", "as", &BusProgramServer::addFiles },
            { own, "Hotkeys", "", nullptr },
            { desktop, "Activate", "a{sv}", &BusProgramServer::openSettings },
            { desktop, "Open", "asa{sv}", &BusProgramServer::addFiles },
            { desktop, "ActivateAction", "sava{sv}", &BusProgramServer::activateAction },
        };
        for (auto const& method : methods) {
            bool const isMeant = message.interface().isEmpty() || message.interface() == QLatin1String(method.interface);
            if (isMeant && message.member() == QLatin1String(method.name) && message.signature() == QLatin1String(method.signature))
                return &method;
        }
        return nullptr;
    }
};

/// Receives the requests.
class BusProgramServer::Reception : public QDBusVirtualObject {
public:
    explicit Reception(BusProgramServer& server)
        : m_server(server)
    {
    }

    QString introspect(QString const& path) const override { return path == programPath() ? QString::fromLatin1(introspection) : QString(); }

    bool handleMessage(QDBusMessage const& message, QDBusConnection const& connection) override
    {
        auto const* method = Method::find(message);
        if (!method)
            return false;
        if (!method->answer)
            return connection.send(message.createReply(QString::fromStdString(m_server.m_handlers.hotkeys())));
        return QMetaObject::invokeMethod(
            &m_server, [this, message, connection] { m_server.perform(message, connection); }, Qt::QueuedConnection);
    }

private:
    BusProgramServer& m_server;
};

BusProgramServer::BusProgramServer(QDBusConnection bus, ProgramHandlers handlers)
    : m_bus(std::move(bus))
    , m_handlers(std::move(handlers))
    , m_reception(std::make_unique<Reception>(*this))
{
    m_reception->moveToThread(&m_thread);
    m_thread.start();
}

BusProgramServer::~BusProgramServer()
{
    leaveName();
    m_thread.quit();
    m_thread.wait();
}

void BusProgramServer::leaveName()
{
    if (!m_bus.isConnected())
        return;
    m_bus.unregisterService(programName());
    m_bus.unregisterObject(programPath());
}

bool BusProgramServer::takeName()
{
    m_bus.registerVirtualObject(programPath(), m_reception.get());
    auto* bus = m_bus.interface();
    auto const reply = bus->registerService(programName(), QDBusConnectionInterface::DontQueueService, QDBusConnectionInterface::DontAllowReplacement);
    return reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered;
}

void BusProgramServer::perform(QDBusMessage const& message, QDBusConnection const& connection)
{
    auto const answer = (this->*Method::find(message)->answer)(message.arguments());
    if (message.isReplyRequired())
        connection.send(answer ? message.createReply(*answer) : message.createErrorReply(QDBusError::Failed, QString::fromStdString(answer.error())));
}

/// Performs the request after the answer is sent, so that callers do not wait for it.
void BusProgramServer::later(std::function<void()> request) { QMetaObject::invokeMethod(this, std::move(request), Qt::QueuedConnection); }

BusProgramServer::Answer BusProgramServer::showMenu(QVariantList const&) { return showMenuAt(std::nullopt); }

BusProgramServer::Answer BusProgramServer::showMenuAt(std::optional<RunningProgram::ScreenPoint> at)
{
    if (auto const can = m_handlers.canShowMenu ? m_handlers.canShowMenu() : Result<void>(); !can)
        return Failure { can.error() };
    later([this, at] { m_handlers.showMenu(at); });
    return QVariantList {};
}

BusProgramServer::Answer BusProgramServer::showMenuAt(QVariantList const& arguments)
{
    return showMenuAt(RunningProgram::ScreenPoint { static_cast<double>(arguments[0].toInt()), static_cast<double>(arguments[1].toInt()) });
}

BusProgramServer::Answer BusProgramServer::takeActivationToken(QVariantList const& arguments)
{
    later([this, token = arguments[0].toString().toStdString()] {
        if (m_handlers.takeActivationToken)
            m_handlers.takeActivationToken(token);
    });
    return QVariantList {};
}

BusProgramServer::Answer BusProgramServer::openSettings(QVariantList const&)
{
    later([this] { m_handlers.openSettings(); });
    return QVariantList {};
}

BusProgramServer::Answer BusProgramServer::quit(QVariantList const&)
{
    later([this] { m_handlers.quit(); });
    return QVariantList {};
}

/// Queues the files, so that callers do not wait for the adding either.
BusProgramServer::Answer BusProgramServer::addFiles(QVariantList const& arguments)
{
    std::vector<Url> files;
    for (auto const& name : arguments[0].toStringList()) {
        if (auto file = fileNamed(name.toStdString()))
            files.push_back(std::move(*file));
    }
    if (auto const added = m_handlers.addFiles(std::move(files)); !added)
        return Failure { added.error() };
    return QVariantList {};
}

BusProgramServer::Answer BusProgramServer::activateAction(QVariantList const& arguments)
{
    return arguments[0].toString() == QLatin1String("show-menu") ? showMenu({}) : openSettings({});
}

} // namespace zv
