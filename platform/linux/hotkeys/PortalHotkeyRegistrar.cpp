#include "platform/linux/hotkeys/PortalHotkeyRegistrar.h"

#include "base/MainThread.h"
#include "platform/linux/hotkeys/BindingLines.h"
#include "platform/linux/hotkeys/KeyNames.h"
#include "platform/linux/toolkit/BusListener.h"
#include "platform/linux/toolkit/BusStructures.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>

#include <algorithm>
#include <array>
#include <utility>

namespace zv {

/// A shortcut's name and description for the portal.
struct PortalShortcut {
    QString id;
    QVariantMap properties;
};

static QDBusArgument& operator<<(QDBusArgument& argument, PortalShortcut const& shortcut) { return writeStructure(argument, shortcut.id, shortcut.properties); }

static QDBusArgument const& operator>>(QDBusArgument const& argument, PortalShortcut& shortcut)
{
    return readStructure(argument, shortcut.id, shortcut.properties);
}

} // namespace zv

Q_DECLARE_METATYPE(zv::PortalShortcut)

namespace zv {

namespace {

// https://flatpak.github.io/xdg-desktop-portal/docs/doc-org.freedesktop.portal.GlobalShortcuts.html, and
// beside it …portal.Request.html and …portal.Session.html.
constexpr auto portalService = "org.freedesktop.portal.Desktop";
constexpr auto portalPath = "/org/freedesktop/portal/desktop";
constexpr auto portalInterface = "org.freedesktop.portal.GlobalShortcuts";
constexpr auto requestInterface = "org.freedesktop.portal.Request";
constexpr auto sessionInterface = "org.freedesktop.portal.Session";

/// Each binding may ask the user a question, so passes in quick succession share one.
constexpr std::chrono::milliseconds gatheringTime { 300 };
constexpr int patience = 1000;

QString text(char const* latin1) { return QString::fromLatin1(latin1); }

QDBusMessage versionQuestion()
{
    auto question = QDBusMessage::createMethodCall(text(portalService), text(portalPath), text("org.freedesktop.DBus.Properties"), text("Get"));
    question << text(portalInterface) << text("version");
    return question;
}

/// Reads a response: a number, 0 for granted, then a map of results.
bool isGranted(QDBusMessage const& response) { return response.arguments().value(0, 1U).toUInt() == 0; }

QVariantMap resultsOf(QDBusMessage const& response) { return qdbus_cast<QVariantMap>(response.arguments().value(1)); }

} // namespace

PortalHotkeyRegistrar::PortalHotkeyRegistrar(QDBusConnection const& bus, Timers& timers, KeyboardLayoutSource& layout, std::string desktopNames)
    : m_bus(bus)
    , m_timers(timers)
    , m_layout(layout)
    , m_desktopNames(std::move(desktopNames))
    , m_context(std::make_unique<QObject>())
    , m_portal(text(portalService), m_bus)
{
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    listen();
    QObject::connect(&m_portal, &QDBusServiceWatcher::serviceOwnerChanged, m_context.get(),
        [this](QString const&, QString const&, QString const& newOwner) { portalChangedHands(newOwner); });
    askForPortal();
}

PortalHotkeyRegistrar::~PortalHotkeyRegistrar() { closeSession(); }

void PortalHotkeyRegistrar::listen()
{
    m_activations = std::make_unique<BusListener>(
        m_bus, text(portalService), text(portalPath), text(portalInterface), text("Activated"), [this](QDBusMessage const& message) { activated(message); });
}

void PortalHotkeyRegistrar::useBus(QDBusConnection const& bus)
{
    m_bus = bus;
    m_portal.setConnection(bus);
    listen();
    portalChangedHands(text(portalService));
}

bool PortalHotkeyRegistrar::isThere(QDBusConnection const& bus)
{
    return bus.call(versionQuestion(), QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

std::optional<KeyBindingLine> PortalHotkeyRegistrar::bindingLine(KeyChord chord, std::string const& command) const
{
    return bindingLineFor(m_desktopNames, chord, command, m_layout.layers());
}

/// Names our entry to the portal, which knows a program by its desktop's launcher alone; before any other call of the
/// connection. Older portals lack it, and nothing depends on the answer.
void PortalHotkeyRegistrar::introduce()
{
    auto message = QDBusMessage::createMethodCall(text(portalService), text(portalPath), text("org.freedesktop.host.portal.Registry"), text("Register"));
    message << text("org.zanthevell.ZantheVell") << QVariantMap();
    m_bus.asyncCall(message);
}

/// Drops the session and its bindings, which end with their portal.
void PortalHotkeyRegistrar::portalChangedHands(QString const& newOwner)
{
    m_session.clear();
    releaseAll();
    bool const served = std::exchange(m_support, HotkeySupport::none) != HotkeySupport::none;
    if (served && onInvalidated)
        onInvalidated();
    if (!newOwner.isEmpty())
        askForPortal();
}

void PortalHotkeyRegistrar::askForPortal()
{
    introduce();
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(versionQuestion()), m_context.get());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [this](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        if (finished->isError())
            return;
        m_support = HotkeySupport::askingTheUser;
        if (onInvalidated)
            onInvalidated();
    });
}

std::vector<bool> PortalHotkeyRegistrar::claimAll(HotkeyID firstID, std::span<KeyChord const> chords)
{
    assertMainThread();
    std::set<KeyChord> const wanted(chords.begin(), chords.end());
    if (wanted != m_wanted) {
        m_wanted = wanted;
        m_refused.clear();
        bindSoon();
    }
    m_held.clear();
    std::vector<bool> answers;
    answers.reserve(chords.size());
    for (auto const& chord : chords) {
        bool const succeeded = !m_refused.contains(chord) && m_held.try_emplace(chordName(chord), chord, firstID).second;
        firstID += succeeded ? 1 : 0;
        answers.push_back(succeeded);
    }
    return answers;
}

void PortalHotkeyRegistrar::releaseAll()
{
    assertMainThread();
    m_pendingBind.reset();
    m_wanted.clear();
    m_refused.clear();
    m_held.clear();
    closeSession();
}

void PortalHotkeyRegistrar::bindSoon()
{
    m_pendingBind = m_timers.after(gatheringTime, [this] { bind(); });
}

/// Binds in a new session when the shortcuts change, as a session takes them only once.
void PortalHotkeyRegistrar::bind()
{
    m_pendingBind.reset();
    closeSession();
    if (m_wanted.empty())
        return;
    auto options = request(&PortalHotkeyRegistrar::sessionCreated);
    options.insert(text("session_handle_token"), options.value(text("handle_token")));
    call("CreateSession", { options });
}

void PortalHotkeyRegistrar::sessionCreated(QDBusMessage const& message)
{
    auto const session = resultsOf(message).value(text("session_handle"));
    bool const isPath = session.metaType() == QMetaType::fromType<QDBusObjectPath>();
    m_session = isPath ? session.value<QDBusObjectPath>().path() : session.toString();
    if (!isGranted(message) || m_session.isEmpty())
        refuse(m_wanted);
    else
        bindShortcuts();
}

void PortalHotkeyRegistrar::bindShortcuts()
{
    QList<PortalShortcut> shortcuts;
    for (auto const& chord : m_wanted) {
        auto const wish = trigger(chord);
        shortcuts.append({ chordName(chord), { { text("description"), wish }, { text("preferred_trigger"), wish } } });
    }
    auto const options = request(&PortalHotkeyRegistrar::shortcutsBound);
    call("BindShortcuts", { QVariant::fromValue(QDBusObjectPath(m_session)), QVariant::fromValue(shortcuts), QString(), options });
}

/// KDE grants an empty list while the user still has to give the keys in its settings: that is no refusal.
void PortalHotkeyRegistrar::shortcutsBound(QDBusMessage const& message)
{
    auto refused = m_wanted;
    auto const bound = qdbus_cast<QList<PortalShortcut>>(resultsOf(message).value(text("shortcuts")));
    for (auto const& shortcut : bound)
        std::erase_if(refused, [&](KeyChord chord) { return chordName(chord) == shortcut.id; });
    bool const awaitsKeys = isGranted(message) && bound.isEmpty();
    refuse(awaitsKeys ? std::set<KeyChord> {} : isGranted(message) ? std::move(refused) : m_wanted);
}

void PortalHotkeyRegistrar::refuse(std::set<KeyChord> refused)
{
    if (std::exchange(m_refused, std::move(refused)) != m_refused && onInvalidated)
        onInvalidated();
}

void PortalHotkeyRegistrar::activated(QDBusMessage const& message)
{
    auto const arguments = message.arguments();
    if (arguments.size() < 2 || arguments[0].value<QDBusObjectPath>().path() != m_session)
        return;
    auto const held = m_held.find(arguments[1].toString());
    if (held != m_held.end() && onPressed)
        onPressed(held->second.second);
}

void PortalHotkeyRegistrar::closeSession()
{
    m_response.reset();
    if (m_session.isEmpty())
        return;
    m_bus.send(QDBusMessage::createMethodCall(text(portalService), std::exchange(m_session, {}), text(sessionInterface), text("Close")));
}

/// Listens before the call, as the response may precede the call's own answer; the path is made
/// by the portal from our name on the bus and the token.
QVariantMap PortalHotkeyRegistrar::request(Responded responded)
{
    auto const token = text("zanthe_vell_%1").arg(++m_serial);
    auto const sender = m_bus.baseService().mid(1).replace(u'.', u'_');
    m_response = std::make_unique<BusListener>(m_bus, text(portalService), text("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token),
        text(requestInterface), text("Response"), [this, responded](QDBusMessage const& message) { (this->*responded)(message); });
    return { { text("handle_token"), token } };
}

void PortalHotkeyRegistrar::call(char const* method, QVariantList const& arguments)
{
    auto message = QDBusMessage::createMethodCall(text(portalService), text(portalPath), text(portalInterface), text(method));
    message.setArguments(arguments);
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), m_context.get());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [this, serial = m_serial](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        if (finished->isError() && serial == m_serial)
            refuse(m_wanted);
    });
}

/// The chord in the portal's notation, such as "CTRL+LOGO+e", where keys are named by the text they type.
QString PortalHotkeyRegistrar::trigger(KeyChord chord)
{
    static constexpr std::array<std::pair<std::uint32_t, char const*>, 4> words { { { controlKey, "CTRL" }, { optionKey, "ALT" }, { shiftKey, "SHIFT" },
        { commandKey, "LOGO" } } };
    return chordText(chord, words, m_layout.layers());
}

} // namespace zv
