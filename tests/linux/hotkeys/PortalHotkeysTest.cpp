#include "platform/linux/hotkeys/PortalHotkeyRegistrar.h"

#include "platform/linux/toolkit/QtTimers.h"
#include "tests/fakes/FakeHotkeys.h"
#include "tests/linux/PrivateBus.h"
#include "tests/linux/toolkit/TestApplication.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <gtest/gtest.h>

namespace zv {

struct OfferedShortcut {
    QString id;
    QVariantMap properties;
};

static QDBusArgument& operator<<(QDBusArgument& argument, OfferedShortcut const& shortcut)
{
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

static QDBusArgument const& operator>>(QDBusArgument const& argument, OfferedShortcut& shortcut)
{
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

} // namespace zv

Q_DECLARE_METATYPE(zv::OfferedShortcut)

namespace zv {
namespace {

using namespace std::chrono_literals;
using tests::turnUntil;

constexpr std::uint16_t keyE = 14, keyF5 = 96;

QString text(char const* latin1) { return QString::fromLatin1(latin1); }

/// A desktop whose user refuses the test's choice.
class FakePortal : public QDBusVirtualObject {
public:
    explicit FakePortal(QDBusConnection bus)
        : m_bus(std::move(bus))
    {
        qDBusRegisterMetaType<OfferedShortcut>();
        qDBusRegisterMetaType<QList<OfferedShortcut>>();
        m_bus.registerVirtualObject(text("/org/freedesktop/portal/desktop"), this, QDBusConnection::SubPath);
        come();
    }
    void come() { m_bus.registerService(text("org.freedesktop.portal.Desktop")); }
    void leave() { m_bus.unregisterService(text("org.freedesktop.portal.Desktop")); }

    QString introspect(QString const&) const override { return {}; }
    bool handleMessage(QDBusMessage const& message, QDBusConnection const& bus) override
    {
        auto const member = message.member();
        if (member == text("Get"))
            return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(1U))));
        if (member == text("CreateSession"))
            createSession(message);
        else if (member == text("BindShortcuts"))
            bind(message);
        else if (member == text("Close"))
            ++closed;
        return true;
    }
    void activate(QString const& id) { activate(id, session()); }
    void activate(QString const& id, QString const& inSession)
    {
        auto signal = QDBusMessage::createSignal(text("/org/freedesktop/portal/desktop"), text("org.freedesktop.portal.GlobalShortcuts"), text("Activated"));
        signal << QVariant::fromValue(QDBusObjectPath(inSession)) << id << quint64 { 1 } << QVariantMap();
        m_bus.send(signal);
    }

    std::map<QString, QString> triggers; ///< as asked for, by id
    std::set<QString> refusedTriggers;
    bool cancelsAll = false;
    int sessions = 0;
    int closed = 0;

private:
    [[nodiscard]] QString session() const { return text("/org/freedesktop/portal/desktop/session/s%1").arg(sessions); }

    void createSession(QDBusMessage const& message)
    {
        ++sessions;
        respond(message, message.arguments().value(0), 0, { { text("session_handle"), session() } });
    }
    void bind(QDBusMessage const& message)
    {
        triggers.clear();
        QList<OfferedShortcut> granted;
        for (auto const& shortcut : qdbus_cast<QList<OfferedShortcut>>(message.arguments().value(1))) {
            auto const trigger = shortcut.properties.value(text("preferred_trigger")).toString();
            triggers[shortcut.id] = trigger;
            if (!refusedTriggers.contains(trigger))
                granted.append(shortcut);
        }
        respond(message, message.arguments().value(3), cancelsAll ? 1 : 0, { { text("shortcuts"), QVariant::fromValue(granted) } });
    }
    void respond(QDBusMessage const& message, QVariant const& options, uint code, QVariantMap const& results)
    {
        auto const sender = message.service().mid(1).replace(u'.', u'_');
        auto const token = qdbus_cast<QVariantMap>(options).value(text("handle_token")).toString();
        auto const path = text("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
        m_bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(path))));
        auto response = QDBusMessage::createSignal(path, text("org.freedesktop.portal.Request"), text("Response"));
        response << code << results;
        m_bus.send(response);
    }

    QDBusConnection m_bus;
};

class PortalHotkeysTest : public testing::Test {
protected:
    static void SetUpTestSuite() { ensureApplication(); }
    PortalHotkeysTest()
    {
        layout.set({ { { keyE, "e" }, { 41, ";" } } });
        registrar.onPressed = [this](HotkeyID id) { pressed.push_back(id); };
        registrar.onInvalidated = [this] { ++invalidations; };
    }
    ~PortalHotkeysTest() override
    {
        QDBusConnection::disconnectFromBus(text("portal-desktop"));
        QDBusConnection::disconnectFromBus(text("portal-program"));
        QDBusConnection::disconnectFromBus(text("portal-later"));
    }

    QDBusConnection connect(char const* name) { return QDBusConnection::connectToBus(QString::fromStdString(bus.address()), text(name)); }
    std::vector<bool> claim(HotkeyID firstID, std::vector<KeyChord> const& chords) { return registrar.claimAll(firstID, chords); }

    tests::PrivateBus bus;
    QtTimers timers;
    fakes::FakeKeyboardLayoutSource layout;
    FakePortal portal { connect("portal-desktop") };
    PortalHotkeyRegistrar registrar { connect("portal-program"), timers, layout };
    std::vector<HotkeyID> pressed;
    int invalidations = 0;
};

TEST_F(PortalHotkeysTest, ServeOnceThePortalHasAnswered)
{
    EXPECT_EQ(registrar.support(), HotkeySupport::none);
    EXPECT_TRUE(turnUntil([this] { return invalidations == 1; }));
    EXPECT_EQ(registrar.support(), HotkeySupport::askingTheUser);
}

TEST_F(PortalHotkeysTest, AskForEachCombinationInThePortalsWords)
{
    std::vector<KeyChord> const chords { { keyE, commandKey | optionKey | shiftKey | controlKey }, { keyF5, 0 }, { 41, commandKey }, { 53, controlKey } };
    EXPECT_EQ(claim(1, chords), std::vector<bool>(4, true));
    EXPECT_TRUE(turnUntil([this] { return portal.triggers.size() == 4; }));
    std::set<QString> triggers;
    for (auto const& [id, trigger] : portal.triggers)
        triggers.insert(trigger);
    EXPECT_EQ(triggers, (std::set { text("CTRL+ALT+SHIFT+LOGO+e"), text("F5"), text("LOGO+semicolon"), text("CTRL+Escape") }));
}

TEST_F(PortalHotkeysTest, AskOnceForPassesInARowAndNotAgainForTheSame)
{
    (void)claim(1, { { keyE, commandKey } });
    (void)claim(2, { { keyF5, 0 } });
    EXPECT_TRUE(turnUntil([this] { return !portal.triggers.empty(); }));
    EXPECT_EQ(claim(3, { { keyF5, 0 }, { keyF5, 0 } }), (std::vector { true, false }));
    turnUntil([] { return false; }, 500ms);
    EXPECT_EQ(portal.sessions, 1);

    portal.activate(portal.triggers.begin()->first, text("/org/freedesktop/portal/desktop/session/of_another"));
    portal.activate(portal.triggers.begin()->first);
    EXPECT_TRUE(turnUntil([this] { return !pressed.empty(); }));
    EXPECT_EQ(pressed, (std::vector<HotkeyID> { 3 })) << "once, by the id of the last pass";

    (void)claim(4, { { keyE, commandKey } });
    EXPECT_TRUE(turnUntil([this] { return portal.sessions == 2; }));
    EXPECT_EQ(portal.closed, 1);
}

TEST_F(PortalHotkeysTest, TellWhatTheUserRefusedAtTheNextPass)
{
    std::vector<KeyChord> const chords { { keyE, commandKey }, { keyF5, 0 } };
    EXPECT_TRUE(turnUntil([this] { return invalidations == 1; }));
    portal.refusedTriggers = { text("LOGO+e") };
    EXPECT_EQ(claim(1, chords), (std::vector { true, true }));
    EXPECT_TRUE(turnUntil([this] { return invalidations == 2; }));
    EXPECT_EQ(claim(3, chords), (std::vector { false, true }));

    portal.refusedTriggers = { text("LOGO+e"), text("F5") };
    (void)claim(2, { { keyE, commandKey | optionKey } });
    portal.refusedTriggers = { text("ALT+LOGO+e") };
    EXPECT_TRUE(turnUntil([this] { return portal.sessions == 2 && portal.triggers.size() == 1; }));
    EXPECT_EQ(claim(3, { { keyE, commandKey | optionKey } }), (std::vector { true })) << "an empty list means that the user gives the keys later";

    portal.refusedTriggers = { text("LOGO+e") };
    portal.cancelsAll = true;
    EXPECT_EQ(claim(4, { chords[0] }), (std::vector { true })) << "another question may have another answer";
    EXPECT_TRUE(turnUntil([this] { return invalidations == 3; }));
    EXPECT_EQ(claim(5, { chords[0] }), (std::vector { false }));
}

TEST_F(PortalHotkeysTest, AskAgainWhenThePortalHasComeBack)
{
    std::vector<KeyChord> const chords { { keyE, commandKey } };
    registrar.onInvalidated = [&] {
        if (registrar.support() != HotkeySupport::none)
            (void)claim(7, chords);
    };
    EXPECT_TRUE(turnUntil([this] { return portal.sessions == 1 && !portal.triggers.empty(); }));
    portal.leave();
    EXPECT_TRUE(turnUntil([this] { return registrar.support() == HotkeySupport::none; }));
    portal.triggers.clear();
    portal.come();
    EXPECT_TRUE(turnUntil([this] { return portal.sessions == 2 && !portal.triggers.empty(); }));
    EXPECT_EQ(portal.closed, 0) << "the session has gone with the portal";

    // The answer to the binding may be under way still.
    EXPECT_TRUE(turnUntil([this] {
        if (pressed.empty())
            portal.activate(portal.triggers.begin()->first);
        return !pressed.empty();
    }));
    EXPECT_EQ(pressed.front(), 7U);

    registrar.useBus(connect("portal-later"));
    EXPECT_TRUE(turnUntil([this] { return portal.sessions == 3; })) << "as is another connection, after the bus was restarted";
}

} // namespace
} // namespace zv
