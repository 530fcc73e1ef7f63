#include "platform/linux/wayland/KWinWindows.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QTimer>

#include <utility>

namespace zv {

namespace {

constexpr int patience = 1000; // milliseconds
constexpr char const* ownId = "org.zanthevell.ZantheVell";

QString kwin() { return QStringLiteral("org.kde.KWin"); }

QString reportPath() { return QStringLiteral("/org/zanthevell/ZantheVell/Windows"); }

QString scriptName() { return QStringLiteral("zanthe-vell"); }

/// https://develop.kde.org/docs/plasma/kwin/api: clientList() became windowList() in Plasma 6. The active one comes last.
QString listing(QString const& receiver)
{
    return QStringLiteral(R"js(
var all = workspace.windowList ? workspace.windowList() : workspace.clientList();
function report(one) {
    callDBus("%1", "%2", "org.zanthevell.Windows", "Window", "" + one.internalId, "" + one.resourceClass, "" + one.desktopFileName, "" + one.caption, "" + one.pid);
}
all = all.filter(function (one) { return !one.skipTaskbar && !one.specialWindow; });
all.filter(function (one) { return !one.active; }).forEach(report);
all.filter(function (one) { return one.active; }).forEach(report);
callDBus("%1", "%2", "org.zanthevell.Windows", "Done");
)js")
        .arg(receiver, reportPath());
}

QString closing(QString const& window)
{
    return QStringLiteral(R"js(
var all = workspace.windowList ? workspace.windowList() : workspace.clientList();
all.filter(function (one) { return "" + one.internalId == "%1"; }).forEach(function (one) { one.closeWindow(); });
)js")
        .arg(window);
}

QDBusMessage callTo(QString const& path, char const* interface, char const* method, QVariantList const& arguments = {})
{
    auto message = QDBusMessage::createMethodCall(kwin(), path, QString::fromLatin1(interface), QString::fromLatin1(method));
    message.setArguments(arguments);
    return message;
}

} // namespace

std::unique_ptr<ClientWindows> KWinWindows::on(QDBusConnection const& bus)
{
    auto* names = bus.interface();
    bool const isThere = names && names->isServiceRegistered(kwin());
    return isThere ? std::unique_ptr<ClientWindows>(new KWinWindows(bus)) : nullptr;
}

KWinWindows::KWinWindows(QDBusConnection bus)
    : m_bus(std::move(bus))
{
    m_bus.registerVirtualObject(reportPath(), this);
}

KWinWindows::~KWinWindows() { m_bus.unregisterObject(reportPath()); }

/// Its objects of scripts moved in Plasma 6; the call to the other place comes to nothing.
void KWinWindows::run(QString const& script)
{
    if (!m_script.isOpen() && !m_script.open())
        return;
    m_script.resize(0);
    m_script.seek(0);
    m_script.write(script.toUtf8());
    m_script.flush();
    auto const scripting = QStringLiteral("/Scripting");
    m_bus.call(callTo(scripting, "org.kde.kwin.Scripting", "unloadScript", { scriptName() }), QDBus::Block, patience);
    auto const loaded = m_bus.call(callTo(scripting, "org.kde.kwin.Scripting", "loadScript", { m_script.fileName(), scriptName() }), QDBus::Block, patience);
    auto const number = loaded.arguments().value(0, -1).toInt();
    for (auto const* place : { "/%1", "/Scripting/Script%1" })
        m_bus.asyncCall(callTo(QString::fromLatin1(place).arg(number), "org.kde.kwin.Script", "run"));
}

void KWinWindows::withList(std::function<void(List)> done)
{
    m_waiting.push_back(std::move(done));
    if (m_waiting.size() > 1)
        return;
    m_found.clear();
    run(listing(m_bus.baseService()));
    QTimer::singleShot(patience, this, [this, pass = m_pass] {
        if (pass == m_pass)
            finish(std::nullopt);
    });
}

bool KWinWindows::handleMessage(QDBusMessage const& message, QDBusConnection const&)
{
    if (message.member() == QLatin1String("Window"))
        found(message.arguments());
    else if (message.member() == QLatin1String("Done"))
        finish(m_found);
    return true;
}

void KWinWindows::found(QList<QVariant> const& facts)
{
    auto const text = [&facts](qsizetype index) { return facts.value(index).toString().toStdString(); };
    if (text(2) == ownId)
        return;
    auto const number = m_numbers.try_emplace(facts.value(0).toString(), static_cast<std::uint32_t>(m_numbers.size() + 1)).first->second;
    auto const pid = facts.value(4).toUInt();
    m_found.push_back({ .window = number,
        .windowClass = text(1),
        .windowInstance = {},
        .gtkApplicationId = text(2),
        .title = text(3),
        .pid = pid,
        .program = programOfProcess(pid) });
}

void KWinWindows::finish(List const& list)
{
    ++m_pass;
    for (auto const& done : std::exchange(m_waiting, {}))
        done(list);
}

/// By the service behind its search for windows, as a script may not take the keyboard from another program.
void KWinWindows::activate(std::uint32_t window)
{
    for (auto const& [name, number] : m_numbers) {
        if (number == window)
            m_bus.asyncCall(callTo(QStringLiteral("/WindowsRunner"), "org.kde.krunner1", "Run", { QStringLiteral("0_") + name, QString() }));
    }
}

void KWinWindows::close(std::uint32_t window)
{
    for (auto const& [name, number] : m_numbers) {
        if (number == window)
            run(closing(name));
    }
}

} // namespace zv
