#include "platform/linux/looks/LookFollower.h"

#include "platform/linux/looks/ThemeSheet.h"
#include "tests/linux/PrivateBus.h"
#include "tests/linux/TemporaryFolder.h"
#include "tests/linux/toolkit/TestApplication.h"

#include <QApplication>
#include <QMenu>
#include <QPalette>

namespace zv {
namespace {

std::string nameOf(std::optional<QColor> const& color)
{
    return color ? color->name(color->alpha() < 255 ? QColor::HexArgb : QColor::HexRgb).toStdString() : "";
}

TEST(ThemeSheet, ReadsColoursAsTheToolkitDoes)
{
    struct Row {
        std::string sheet, color, why;
    };
    Row const rows[] = {
        { "@define-color a #abc;", "#aabbcc", "short" },
        { "@define-color a red;@define-color a rgb(1, 2, 3);", "#010203", "the later one" },
        { "/* @define-color a red; */ @define-color b #808080; @define-color a shade (@b, 1.5);", "#c0c0c0", "made of another, after a comment" },
        { "@define-color a mix(black, white, 0.25);", "#404040", "between two" },
        { "@define-color a alpha(#102030, 0.5);", "#80102030", "translucent" },
        { "@import url(\"more.css\");", "#000001", "imported" },
        { "menu { x { @define-color a red; } }", "", "within a rule" },
        { "@define-color a @b;@define-color b @a;", "", "in a circle" },
        { "@define-color a", "", "cut" },
        { "@define-color a url(x);{{{", "", "no colour" },
    };
    for (auto const& row : rows) {
        ThemeSheet const sheet(row.sheet, [](auto const& address) { return address == "more.css" ? "@import 'more.css'; @define-color a #000001;" : ""; });
        EXPECT_EQ(nameOf(sheet.color("a")), row.color) << row.why;
    }
}

TEST(ThemeSheet, FindsTheLastRuleOfMenus)
{
    ThemeSheet const sheet(
        "menu, .menu { background-color: #111111 } other > menu { background-color: red } menu > menuitem, x { padding: 3px 9px; }"
        "menu menuitem:hover { background-image: linear-gradient(to top, #000000 10%, shade(#202020, 1) 30%) } .menu { background-color: #222222 }",
        {});
    EXPECT_EQ(nameOf(sheet.color({ "menu", ".menu" }, "background-color")), "#222222");
    EXPECT_EQ(nameOf(sheet.color({ "menu menuitem:hover" }, "background-image")), "#101010");
    EXPECT_EQ(sheet.lengths({ "menu menuitem" }, "padding"), (std::vector { 3, 9 }));
}

TEST(FontDescribed, IsReadFromItsEnd)
{
    auto const bold = fontDescribed("Noto Sans Bold 14").value();
    EXPECT_EQ(bold.family().toStdString(), "Noto Sans");
    EXPECT_TRUE(bold.bold());
    EXPECT_EQ(bold.pointSize(), 14);
    for (auto const* wrong : { "", "Sans", "Sans 0", "Sans nan" })
        EXPECT_FALSE(fontDescribed(wrong)) << wrong;
}

/// The program's look under a desktop whose files lie in a folder.
struct LookFollowerTest : testing::Test {
    LookFollowerTest()
    {
        ensureApplication();
        theme("Mine", "#112233");
        theme("Mine-dark", "#010203");
        choose("Mine", 15);
        QApplication::setPalette(QApplication::style()->standardPalette());
    }
    ~LookFollowerTest() override
    {
        QApplication::setPalette(paletteBefore);
        QApplication::setPalette(paletteBefore, "QMenu");
        QApplication::setFont(fontBefore);
    }
    void theme(std::string const& name, std::string const& window) const
    {
        disk.write("share/themes/" + name + "/gtk-3.0/gtk.css", "@define-color theme_bg_color " + window + "; menu { background-color: #445566; }");
    }
    void choose(std::string const& name, int size) const
    {
        disk.write("config/gtk-3.0/settings.ini", "[Settings]\ngtk-theme-name=" + name + "\ngtk-font-name=Sans " + std::to_string(size) + "\n");
    }
    static std::string window() { return nameOf(QApplication::palette().color(QPalette::Window)); }

    tests::TemporaryFolder disk;
    QPalette paletteBefore = QApplication::palette();
    QFont fontBefore = QApplication::font();
    LookSources sources { .settings = { .connection = nullptr, .configFolders = { disk.path("config"), disk.path("shared") }, .desktops = { "MATE" } },
        .dataFolders = { disk.path("share") } };
};

TEST_F(LookFollowerTest, TheDesktopsThemeIsAdoptedAndFollowed)
{
    LookFollower const follower(sources, "");
    EXPECT_EQ(window(), "#112233");
    QMenu menu;
    menu.ensurePolished();
    EXPECT_EQ(nameOf(menu.palette().color(QPalette::Base)), "#445566");
    EXPECT_EQ(QApplication::font().pointSize(), 15);
    choose("HighContrastInverse", 11);
    EXPECT_TRUE(tests::turnUntil([] { return window() == "#000000"; })) << "one that the toolkit brings along";
    EXPECT_EQ(QApplication::font().pointSize(), 11);
    choose("No such theme", 11);
    EXPECT_TRUE(tests::turnUntil([] { return QApplication::palette() == QApplication::style()->standardPalette(); }));
}

TEST_F(LookFollowerTest, DesktopsWithFilesOfTheirOwnAreRead)
{
    disk.write("config/kdeglobals", "[General]\nfont=Sans,13,-1,5,50,0,0,0,0,0\nColorScheme=Night\n");
    disk.write("share/color-schemes/Night.colors", "[Colors:Window]\nBackgroundNormal=42,46,50\n[Colors:Selection]\nBackgroundNormal=61,174,233\n");
    disk.write("config/lxqt/lxqt.conf", "[Palette]\nwindow_color=#30343f\n[Qt]\nfont=\"Sans,9,-1,5,50,0,0,0,0,0\"\n");
    sources.settings.desktops = { "KDE" };
    auto const kde = readDesktopLook(sources, false);
    EXPECT_EQ(nameOf(kde.theme.value().menus.color(QPalette::Base)), "#2a2e32");
    EXPECT_EQ(nameOf(kde.theme.value().windows.color(QPalette::Highlight)), "#3daee9");
    EXPECT_EQ(kde.font.value().pointSize(), 13);
    sources.settings.desktops = { "LXQt" };
    EXPECT_EQ(nameOf(readDesktopLook(sources, false).theme.value().windows.color(QPalette::Window)), "#30343f");
    EXPECT_EQ(readDesktopLook(sources, false).font.value().toString().left(7).toStdString(), "Sans,9,");
}

TEST_F(LookFollowerTest, IconsAreThoseOfTheDesktopThatRuns)
{
    struct Row {
        std::string desktop, file, text, theme, why;
    };
    Row const rows[] = {
        { "KDE", "", "", "breeze", "its own where nothing is stored" },
        { "KDE", "config/kdedefaults/kdeglobals", "[Icons]\nTheme=Usual\n", "Usual", "the look that the session begins with" },
        { "KDE", "config/kdeglobals", "[Icons]\nTheme=Chosen\n", "Chosen", "the user's" },
        { "LXQt", "shared/lxqt/lxqt.conf", "[General]\nicon_theme=Shared\n", "Shared", "the system's settings, not those of another desktop" },
        { "MATE", "config/gtk-3.0/settings.ini", "[Settings]\ngtk-icon-theme-name=Gone\n", "Chosen", "one that is installed" },
    };
    for (auto const* theme : { "Adwaita", "breeze", "Usual", "Chosen", "Shared" })
        disk.write(std::string("icons/") + theme + "/index.theme", "");
    for (auto const& row : rows) {
        if (!row.file.empty())
            disk.write(row.file, row.text);
        sources.settings.desktops = { row.desktop };
        EXPECT_EQ(desktopIconTheme(sources.settings, { QString::fromStdString(disk.path("icons")) }).toStdString(), row.theme) << row.why;
    }
}

TEST_F(LookFollowerTest, DarkAndLightAreFollowedWhileTheProgramRuns)
{
    tests::PrivateBus const bus;
    tests::MockService service(bus, "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings");
    struct Row {
        std::string chosen;
        std::string light, dark;
    };
    auto const standard = nameOf(QApplication::style()->standardPalette().color(QPalette::Window));
    for (auto const& row : { Row { "", "#112233", "#010203" }, Row { "qt6ct", standard, "#303030" } }) {
        QApplication::setPalette(QApplication::style()->standardPalette());
        LookFollower follower(sources, row.chosen);
        follower.useBus(QDBusConnection::connectToBus(QString::fromStdString(bus.address()), QStringLiteral("colours")));
        for (int const preference : { 1, 0, 1, 2 }) {
            auto const wanted = preference == 1 ? row.dark : row.light;
            service.emitSignal(
                "SettingChanged", "ssv", ("('org.freedesktop.appearance', 'color-scheme', <uint32 " + std::to_string(preference) + ">)").c_str());
            tests::turnUntil([&] { return window() == wanted; });
            EXPECT_EQ(window(), wanted) << preference << row.chosen;
        }
    }
    QDBusConnection::disconnectFromBus(QStringLiteral("colours"));
}

} // namespace
} // namespace zv
