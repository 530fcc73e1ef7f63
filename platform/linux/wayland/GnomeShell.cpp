#include "platform/linux/wayland/GnomeShell.h"

#include "platform/linux/wayland/KWinWindows.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QObject>

#include <utility>

namespace zv {

namespace {

constexpr int patience = 300; // milliseconds
/// Our window's class. The Shell gives it an application of its own where our entry is not installed.
constexpr char const* ownClass = "org.zanthevell.ZantheVell";

QDBusMessage callTo(char const* method, QVariantList const& arguments = {})
{
    auto const name = QStringLiteral("org.zanthevell.Shell");
    auto message = QDBusMessage::createMethodCall(name, QStringLiteral("/org/zanthevell/Shell"), name, QString::fromLatin1(method));
    message.setAutoStartService(false);
    message.setArguments(arguments);
    return message;
}

ClientWindow readWindow(QDBusArgument const& list)
{
    quint32 number = 0, pid = 0;
    QString id, windowClass, title;
    list.beginStructure();
    list >> number >> id >> windowClass >> title >> pid;
    list.endStructure();
    return { .window = number,
        .windowClass = windowClass.toStdString(),
        .windowInstance = {},
        .gtkApplicationId = id.toStdString(),
        .title = title.toStdString(),
        .pid = pid,
        .program = programOfProcess(pid) };
}

/// The windows in an answer of type a(usssu); nothing for other types.
ClientWindows::List windowsIn(QDBusMessage const& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != QLatin1String("a(usssu)"))
        return std::nullopt;
    std::vector<ClientWindow> windows;
    auto const list = answer.arguments().first().value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        auto window = readWindow(list);
        if (window.windowClass != ownClass)
            windows.push_back(std::move(window));
    }
    list.endArray();
    return windows;
}

class GnomeWindows : public QObject, public ClientWindows {
public:
    explicit GnomeWindows(QDBusConnection bus)
        : m_bus(std::move(bus))
    {
    }
    void withList(std::function<void(List)> done) override
    {
        auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(callTo("Windows"), patience), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [done = std::move(done)](QDBusPendingCallWatcher* finished) {
            finished->deleteLater();
            done(windowsIn(finished->reply()));
        });
    }
    void activate(std::uint32_t window) override { m_bus.asyncCall(callTo("Activate", { window })); }
    void close(std::uint32_t window) override { m_bus.asyncCall(callTo("Close", { window })); }

private:
    QDBusConnection m_bus;
};

} // namespace

std::unique_ptr<ClientWindows> GnomeShell::windowsOn(QDBusConnection const& bus)
{
    auto* names = bus.interface();
    bool const isThere = names && names->isServiceRegistered(QStringLiteral("org.zanthevell.Shell"));
    return isThere ? std::make_unique<GnomeWindows>(bus) : nullptr;
}

std::optional<QPoint> GnomeShell::pointerOn(QDBusConnection const& bus)
{
    auto const answer = bus.call(callTo("Pointer"), QDBus::Block, patience);
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != QLatin1String("ii"))
        return std::nullopt;
    return QPoint(answer.arguments()[0].toInt(), answer.arguments()[1].toInt());
}

std::unique_ptr<ClientWindows> windowsOnBus(QDBusConnection const& bus)
{
    auto windows = GnomeShell::windowsOn(bus);
    return windows ? std::move(windows) : KWinWindows::on(bus);
}

} // namespace zv
