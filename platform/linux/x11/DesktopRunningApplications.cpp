#include "platform/linux/x11/DesktopRunningApplications.h"

#include "base/MainThread.h"
#include "platform/linux/posix/LaunchContext.h"
#include "platform/linux/x11/X11ClientWindows.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QStringList>
#include <QVariantMap>

#include <algorithm>

namespace zv {

namespace {

constexpr int unitListTimeout = 2000;

/// The unit names in an answer of type a(ssssssouso); empty for other types.
std::vector<std::string> unitNamesIn(QDBusMessage const& answer)
{
    std::vector<std::string> names;
    auto const values = answer.arguments();
    if (answer.type() != QDBusMessage::ReplyMessage || values.isEmpty() || !values.first().canConvert<QDBusArgument>())
        return names;
    auto const list = values.first().value<QDBusArgument>();
    if (list.currentSignature() != QStringLiteral("a(ssssssouso)"))
        return names;
    list.beginArray();
    while (!list.atEnd()) {
        QString name;
        list.beginStructure();
        list >> name;
        list.endStructure();
        names.push_back(name.toStdString());
    }
    list.endArray();
    return names;
}

/// https://www.freedesktop.org/software/systemd/man/latest/org.freedesktop.systemd1.html, "The Manager Object"
QDBusMessage unitListCall()
{
    auto call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.systemd1"), QStringLiteral("/org/freedesktop/systemd1"),
        QStringLiteral("org.freedesktop.systemd1.Manager"), QStringLiteral("ListUnitsByPatterns"));
    call.setArguments({ QStringList { QStringLiteral("active") }, QStringList { QStringLiteral("app-*.scope"), QStringLiteral("app-*.service") } });
    call.setAutoStartService(false);
    return call;
}

/// Activates the application over the bus, which raises or starts it:
/// https://specifications.freedesktop.org/desktop-entry-spec, "D-Bus Activation".
void activateOverBus(QDBusConnection const& bus, ApplicationEntry const& entry)
{
    auto const name = QString::fromStdString(entry.id.substr(0, entry.id.rfind('.')));
    auto const path = QStringLiteral("/") + QString(name).replace(QLatin1Char('.'), QLatin1Char('/')).replace(QLatin1Char('-'), QLatin1Char('_'));
    auto call = QDBusMessage::createMethodCall(name, path, QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
    QVariantMap tokens;
    if (auto const& startupId = launchTokens().startupId)
        tokens.insert(QStringLiteral("desktop-startup-id"), QString::fromStdString(startupId(entry.name)));
    if (auto const& token = launchTokens().activationToken)
        tokens.insert(QStringLiteral("activation-token"), QString::fromStdString(token()));
    call.setArguments({ tokens });
    bus.asyncCall(call);
}

} // namespace

DesktopRunningApplications::DesktopRunningApplications(Services services, std::unique_ptr<ClientWindows> windows)
    : m_services(std::move(services))
    , m_windows(std::move(windows))
{
}

void DesktopRunningApplications::list(std::function<void(List)> done)
{
    assertMainThread();
    m_services.catalog.withIndex(m_lifetime.guard([this, done = std::move(done)](ApplicationCatalog::Index const& index) {
        if (!m_windows)
            return listUnits(index, done);
        m_windows->withList([index, done](ClientWindows::List const& windows) {
            if (!windows)
                return done(std::nullopt);
            std::vector<RunningApplication> applications;
            for (auto const& window : *windows)
                applications.push_back(applicationOf(window, *index));
            done(std::move(applications));
        });
    }));
}

void DesktopRunningApplications::listUnits(ApplicationCatalog::Index const& index, std::function<void(List)> done)
{
    // A call without a connection is never answered.
    if (!m_services.sessionBus.isConnected())
        return done(std::nullopt);
    auto* const watcher = new QDBusPendingCallWatcher(m_services.sessionBus.asyncCall(unitListCall(), unitListTimeout));
    auto const answered = [index, done = std::move(done)](QDBusMessage const& answer) {
        if (answer.type() != QDBusMessage::ReplyMessage)
            return done(std::nullopt);
        done(applicationsOfUnits(unitNamesIn(answer), *index));
    };
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, answered = m_lifetime.guard(answered)]() mutable {
        watcher->deleteLater();
        answered(watcher->reply());
    });
}

void DesktopRunningApplications::activate(std::string const& id)
{
    assertMainThread();
    withWindowsOf(id, [this, id](ApplicationIndex const& index, std::vector<ClientWindow> const& windows) { activate(index, windows, id); });
}

/// Closes its windows: programs of this desktop end with the last one.
void DesktopRunningApplications::quit(std::string const& id)
{
    assertMainThread();
    withWindowsOf(id, [this](ApplicationIndex const&, std::vector<ClientWindow> const& windows) {
        for (auto const& window : windows)
            m_windows->close(window.window);
    });
}

void DesktopRunningApplications::withWindowsOf(std::string const& id, Use use)
{
    m_services.catalog.withIndex(m_lifetime.guard([this, id, use = std::move(use)](ApplicationCatalog::Index const& index) {
        if (!m_windows)
            return use(*index, {});
        m_windows->withList(m_lifetime.guard([index, id, use](ClientWindows::List list) {
            auto windows = std::move(list).value_or(std::vector<ClientWindow> {});
            std::erase_if(windows, [&](auto const& window) { return applicationOf(window, *index).id != id; });
            use(*index, windows);
        }));
    }));
}

void DesktopRunningApplications::activate(ApplicationIndex const& index, std::vector<ClientWindow> const& windows, std::string const& id)
{
    if (!windows.empty())
        return m_windows->activate(windows.back().window);
    auto const* entry = index.find(id);
    if (!entry)
        return;
    if (entry->isDBusActivatable)
        activateOverBus(m_services.sessionBus, *entry);
    else if (m_services.launch)
        m_services.launch(Url::fromPath(entry->path));
}

std::unique_ptr<ClientWindows> clientWindowsOfThisDisplay()
{
    auto const* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection())
        return nullptr;
    auto const screens = xcb_setup_roots_iterator(xcb_get_setup(x11->connection()));
    return std::make_unique<X11ClientWindows>(x11->connection(), screens.data->root);
}

} // namespace zv
