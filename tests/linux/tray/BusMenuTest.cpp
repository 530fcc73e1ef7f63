#undef QT_NO_CAST_FROM_ASCII // plain literals keep the tables readable

#include "platform/linux/tray/BusMenu.h"

#include "tests/fakes/FakeTime.h"
#include "tests/linux/PrivateBus.h"
#include "tests/linux/menu/FillingMenu.h"
#include "tests/linux/toolkit/TestApplication.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>

namespace zv {
namespace {

/// A panel that draws the menu, on the other side of a bus.
struct BusMenuTest : testing::Test {
    BusMenuTest() { ensureApplication(); }
    ~BusMenuTest() override
    {
        for (auto const* name : { "menu-program", "menu-panel" })
            QDBusConnection::disconnectFromBus(name);
    }
    /// What is answered; an error's name in place of it.
    QVariantList call(char const* method, QVariantList const& arguments)
    {
        auto message = QDBusMessage::createMethodCall(program.baseService(), "/menu", "com.canonical.dbusmenu", method);
        message.setArguments(arguments);
        auto const pending = client.asyncCall(message);
        EXPECT_TRUE(tests::turnUntil([&] { return pending.isFinished(); })) << method;
        auto const reply = pending.reply();
        time.runTasks();
        return reply.type() == QDBusMessage::ErrorMessage ? QVariantList { reply.errorName() } : reply.arguments();
    }
    QStringList labels(int id)
    {
        QStringList all;
        auto const layout = qdbus_cast<BusMenuLayout>(call("GetLayout", { id, -1, QStringList() }).value(1));
        for (auto const& child : layout.children)
            all.append(QString::number(child.id) + " " + child.properties.value("label").toString());
        return all;
    }
    template <class Value> static QVariant boxed(Value const& value) { return QVariant::fromValue(value); }

    int chosen = 0;
    fakes::FakeTime time;
    QtModifierKeys modifiers;
    MenuPerformer performer { modifiers, time };
    std::shared_ptr<FillingMenu> sub = FillingMenu::make({ leaf("one", [this] { ++chosen; }) });
    std::shared_ptr<FillingMenu> top = FillingMenu::make({ leaf("first", [this] { chosen += 10; }), branch("folder", sub) });
    tests::PrivateBus bus;
    QDBusConnection program = QDBusConnection::connectToBus(QString::fromStdString(bus.address()), "menu-program");
    QDBusConnection client = QDBusConnection::connectToBus(QString::fromStdString(bus.address()), "menu-panel");
    BusMenu menu { program, "/menu", top->menu, performer };
};

TEST_F(BusMenuTest, APanelOpensFillsAndChooses)
{
    EXPECT_EQ(labels(0), (QStringList { "1 first", "2 folder" }));
    auto const revision = call("GetLayout", { 0, 0, QStringList() }).value(0).toUInt();
    EXPECT_EQ(call("AboutToShow", { 2 }), QVariantList { true });
    EXPECT_EQ(labels(2), QStringList { "4 one" });
    EXPECT_GT(call("GetLayout", { 0, 0, QStringList() }).value(0).toUInt(), revision) << "a panel that knows this revision reads anew";
    auto const nothing = boxed(QDBusVariant(0));
    EXPECT_TRUE(call("Event", { 4, "hovered", nothing, 0U }).isEmpty());
    EXPECT_EQ(chosen, 0);
    EXPECT_TRUE(call("Event", { 4, "clicked", nothing, 0U }).isEmpty());
    EXPECT_EQ(chosen, 1);
    QList<BusMenuEvent> const events { { 1, "clicked", QDBusVariant(0), 0 }, { 4711, "clicked", QDBusVariant(0), 0 }, { 2, "closed", QDBusVariant(0), 0 } };
    EXPECT_EQ(qdbus_cast<QList<int>>(call("EventGroup", { boxed(events) }).value(0)), QList<int> { 4711 });
    EXPECT_EQ(chosen, 11);
    EXPECT_EQ(sub->closings, 1);
    EXPECT_EQ(qdbus_cast<QList<int>>(call("AboutToShowGroup", { boxed(QList<int> { 1, 2, 4711 }) }).value(1)), QList<int> { 4711 });
}

TEST_F(BusMenuTest, WhatDoesNotFitIsAnErrorAndHarmsNothing)
{
    EXPECT_EQ(labels(0).size(), 2);
    EXPECT_EQ(qdbus_cast<QDBusVariant>(call("GetProperty", { 1, "label" }).value(0)).variant(), QVariant("first"));
    EXPECT_EQ(call("GetProperty", { 4711, "label" }), QVariantList { "org.freedesktop.DBus.Error.InvalidArgs" });
    EXPECT_TRUE(call("Event", { "1", "clicked" }).value(0).toString().startsWith("org.freedesktop.DBus.Error.Unknown"));
    auto const some = qdbus_cast<QList<BusMenuProperties>>(call("GetGroupProperties", { boxed(QList<int> { 4711, 2 }), QStringList { "label" } }).value(0));
    ASSERT_EQ(some.size(), 1);
    EXPECT_EQ(some[0].properties, (QVariantMap { { "label", "folder" } }));
    EXPECT_EQ(chosen, 0);
}

} // namespace
} // namespace zv
