#undef QT_NO_CAST_FROM_ASCII // plain literals keep the tables readable

#include "platform/linux/tray/StatusNotifierItem.h"

#include "platform/linux/menu/DesktopMenuPlacer.h"
#include "tests/fakes/FakeTime.h"
#include "tests/linux/PrivateBus.h"
#include "tests/linux/menu/FillingMenu.h"
#include "tests/linux/toolkit/TestApplication.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusReply>

namespace zv {
namespace {

/// Opens our menus, nowhere.
struct PlacerOfOurs : DesktopMenuPlacer {
    IconMenu iconMenu() const override { return menu; }
    void find(std::optional<QPoint> pixel, Open) override { asked = pixel; }
    IconMenu menu = IconMenu::ours;
    std::optional<QPoint> asked;
};

/// A panel on the other side of a bus.
struct StatusNotifierItemTest : testing::Test {
    StatusNotifierItemTest()
    {
        ensureApplication();
        item.emplace(program, "Zanthe Vell", top->menu, presenter, performer);
        item->color = [this] { return color; };
    }
    ~StatusNotifierItemTest() override
    {
        for (auto const* name : { "item-program", "item-panel" })
            QDBusConnection::disconnectFromBus(name);
    }
    QDBusMessage call(char const* interface, char const* method, QVariantList const& arguments)
    {
        auto message = QDBusMessage::createMethodCall(program.baseService(), "/StatusNotifierItem", interface, method);
        message.setArguments(arguments);
        auto const pending = panel.asyncCall(message);
        EXPECT_TRUE(tests::turnUntil([&] { return pending.isFinished(); })) << method;
        return pending.reply();
    }
    QVariant property(char const* name)
    {
        auto const reply = call("org.freedesktop.DBus.Properties", "Get", { "org.kde.StatusNotifierItem", name });
        return qdbus_cast<QDBusVariant>(reply.arguments().value(0)).variant();
    }

    LaurelColor color = LaurelColor::ofThePanel;
    fakes::FakeTime time;
    QtModifierKeys modifiers;
    MenuPerformer performer { modifiers, time };
    PlacerOfOurs placer;
    MenuPresenter presenter { performer, placer };
    std::shared_ptr<FillingMenu> top = FillingMenu::make({ leaf("first", [] {}) });
    tests::PrivateBus bus;
    QDBusConnection program = QDBusConnection::connectToBus(QString::fromStdString(bus.address()), "item-program");
    QDBusConnection panel = QDBusConnection::connectToBus(QString::fromStdString(bus.address()), "item-panel");
    std::optional<StatusNotifierItem> item;
};

TEST_F(StatusNotifierItemTest, ComesByNameOrAsPixelsAndWithTheMenuThatThePanelDraws)
{
    struct Row {
        LaurelColor color;
        MenuPlacer::IconMenu menu;
        char const *name, *told;
        bool isMenu;
        unsigned ink; ///< of an opaque pixel
        char const* why;
    };
    using enum MenuPlacer::IconMenu;
    Row const rows[] = {
        { LaurelColor::ofThePanel, ours, "org.zanthevell.ZantheVell-symbolic", "/StatusNotifierItem/Menu", false, 0x5a9a3c, "a panel that tints" },
        { LaurelColor::light, ours, "", "/StatusNotifierItem/Menu", false, 0xeeeeec, "a dark one that does not" },
        { LaurelColor::dark, oursAlone, "", "/NO_DBUSMENU", false, 0x2e3436, "one that draws every menu that it is told of" },
        { LaurelColor::green, panels, "", "/StatusNotifierItem/Menu", true, 0x5a9a3c, "one beside which ours cannot stand" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        color = row.color;
        placer.menu = row.menu;
        EXPECT_EQ(property("IconName"), QVariant(row.name));
        EXPECT_EQ(property("ItemIsMenu"), QVariant(row.isMenu));
        EXPECT_EQ(qvariant_cast<QDBusObjectPath>(property("Menu")).path(), row.told);
        auto const pixels = qdbus_cast<StatusPixmaps>(property("IconPixmap")).at(3).pixels.toHex().toStdString();
        EXPECT_NE(pixels.find("ff" + QString::number(row.ink, 16).toStdString()), std::string::npos);
    }
}

/// A watcher that drops each item as it comes.
struct Watcher : QDBusVirtualObject {
    QString introspect(QString const&) const override { return {}; }
    bool handleMessage(QDBusMessage const& message, QDBusConnection const& bus) override
    {
        auto const item = message.arguments().value(0).toString();
        ++registered;
        for (auto const& dropped : { QString("another"), item }) {
            auto signal = QDBusMessage::createSignal(message.path(), message.interface(), "StatusNotifierItemUnregistered");
            bus.send(signal << dropped);
        }
        return bus.send(message.createReply());
    }
    int registered = 0;
};

TEST_F(StatusNotifierItemTest, ComesBackAFewTimesWhereThePanelDropsIt)
{
    Watcher watcher;
    panel.registerVirtualObject("/StatusNotifierWatcher", &watcher);
    panel.registerService("org.kde.StatusNotifierWatcher");
    EXPECT_TRUE(tests::turnUntil([&] { return watcher.registered == 6; }));
    EXPECT_FALSE(tests::turnUntil([&] { return watcher.registered > 6; }, std::chrono::milliseconds(500))) << "not for ever";
    panel.unregisterService("org.kde.StatusNotifierWatcher");
    panel.registerService("org.kde.StatusNotifierWatcher");
    EXPECT_TRUE(tests::turnUntil([&] { return watcher.registered == 12; })) << "another one may keep it";
}

TEST_F(StatusNotifierItemTest, OpensTheMenuWhereItIsClickedUnlessThePanelDrawsIt)
{
    for (auto const* method : { "Activate", "SecondaryActivate", "ContextMenu" }) {
        placer.asked.reset();
        EXPECT_EQ(call("org.kde.StatusNotifierItem", method, { 7, 9 }).type(), QDBusMessage::ReplyMessage) << method;
        EXPECT_TRUE(tests::turnUntil([&] { return placer.asked == QPoint(7, 9); })) << method;
    }
    placer.menu = MenuPlacer::IconMenu::panels;
    auto const unknown = QDBusError::errorString(QDBusError::UnknownMethod);
    EXPECT_EQ(call("org.kde.StatusNotifierItem", "Activate", { 7, 9 }).errorName(), unknown) << "the panel opens it then";
    EXPECT_EQ(call("org.kde.StatusNotifierItem", "Activate", { "7", "9" }).errorName(), unknown);
    EXPECT_EQ(call("org.kde.StatusNotifierItem", "XAyatanaSecondaryActivate", { 7U }).errorName(), unknown) << "GNOME's panel goes on from there";
    EXPECT_EQ(call("org.kde.StatusNotifierItem", "Scroll", { 1, "vertical" }).type(), QDBusMessage::ReplyMessage);
}

} // namespace
} // namespace zv
