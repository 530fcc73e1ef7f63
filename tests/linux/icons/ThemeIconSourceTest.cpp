#include "platform/linux/icons/ThemeIconSource.h"

#include "platform/linux/icons/IconTheme.h"
#include "platform/linux/icons/MenuImages.h"
#include "platform/linux/icons/ThemeFolders.h"
#include "platform/linux/icons/XSettings.h"
#include "tests/fakes/FakeTime.h"
#include "tests/linux/TemporaryFolder.h"
#include "tests/linux/toolkit/TestApplication.h"

#include <QImage>
#include <QPixmap>

#include <gtest/gtest.h>

namespace zv {
namespace {

QImage imageOf(ImageRef const& image) { return menuIconOf(image).pixmap(QSize(16, 16), 1.0).toImage().convertToFormat(QImage::Format_ARGB32); }

int paintedPixels(QImage const& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 0 ? 1 : 0;
    }
    return count;
}

/// Installs private themes in which every icon is of one colour.
class ThemeIconSourceTest : public testing::Test {
protected:
    ThemeIconSourceTest()
    {
        ensureApplication();
        m_previousTheme = QIcon::themeName();
        m_previousPaths = QIcon::themeSearchPaths();
        QIcon::setThemeSearchPaths({ QString::fromStdString(disk.path("themes")) });
        QIcon::setThemeName(QStringLiteral("none"));
    }
    ~ThemeIconSourceTest() override
    {
        QIcon::setThemeSearchPaths(m_previousPaths);
        QIcon::setThemeName(m_previousTheme);
    }
    void installTheme(std::vector<std::pair<std::string, QColor>> const& pictures, int size = 16)
    {
        static int number = 0; // Qt caches a theme's contents by its name
        auto const name = "test" + std::to_string(++number);
        disk.write("themes/" + name + "/index.theme", "[Icon Theme]\nName=Test\nDirectories=all\n[all]\nSize=" + std::to_string(size) + "\nType=Fixed\n");
        disk.makeFolder("themes/" + name + "/all");
        for (auto const& [icon, color] : pictures) {
            QImage image(size, size, QImage::Format_ARGB32);
            image.fill(color);
            image.save(QString::fromStdString(disk.path("themes/" + name + "/all/" + icon + ".png")));
        }
        QIcon::setThemeName(QString::fromStdString(name));
    }
    ImageRef fileIcon(std::string const& name) { return icons.fileIcon(Url::fromPath(disk.path(name))); }

    tests::TemporaryFolder disk;
    fakes::FakeTime time;
    ThemeIconSource icons { time, time };

private:
    QString m_previousTheme;
    QStringList m_previousPaths;
};

TEST_F(ThemeIconSourceTest, AreThoseOfTheThemeInOneSize)
{
    installTheme({ { "folder", Qt::red }, { "text-x-generic", Qt::green } }, 48);
    disk.makeFolder("sub");
    disk.write("a.txt", "");
    EXPECT_EQ(imageOf(fileIcon("sub")).pixelColor(8, 8), QColor(Qt::red));
    EXPECT_EQ(imageOf(fileIcon("a.txt")).pixelColor(8, 8), QColor(Qt::green));
    EXPECT_EQ(imageOf(fileIcon("sub")).size(), QSize(16, 16)) << "a large picture is made smaller";
    EXPECT_EQ(fileIcon("sub")->name(), "folder");
}

TEST_F(ThemeIconSourceTest, AreDrawnByUsWhereThereIsNoThemeAndNeverEmptySquares)
{
    disk.makeFolder("sub");
    disk.write("a.txt", "");
    disk.write("bad.desktop", "[Desktop Entry]\nType=Application\nName=A\nExec=a\nIcon=/no/such/picture.png\n");
    disk.write("b.desktop", "[Desktop Entry]\nType=Application\nName=A\nExec=a\nIcon=" + disk.write("broken.png", "no picture") + "\n");
    for (auto const& image : { fileIcon("sub"), fileIcon("a.txt"), fileIcon("bad.desktop"), fileIcon("b.desktop"), fileIcon("missing"),
             icons.systemIcon(SystemIcon::computer), icons.systemIcon(SystemIcon::folder), icons.systemIcon(SystemIcon::network),
             icons.systemIcon(SystemIcon::application), icons.systemIcon(SystemIcon::systemSettings) }) {
        ASSERT_TRUE(image);
        auto const picture = imageOf(image);
        EXPECT_EQ(picture.size(), QSize(16, 16)) << image->name();
        EXPECT_GT(paintedPixels(picture), 30) << image->name();
        EXPECT_LT(paintedPixels(picture), 250) << "a full square is no picture: " << image->name();
    }
    EXPECT_NE(imageOf(fileIcon("sub")), imageOf(fileIcon("a.txt")));
    EXPECT_EQ(fileIcon("sub")->name(), "") << "nothing that another program would find";
}

TEST_F(ThemeIconSourceTest, AChosenPictureGivesWayToTheUsualOneWhereItIsMissing)
{
    installTheme({ { "folder", Qt::red }, { "star", Qt::green }, { "star-symbolic", Qt::black } });
    disk.makeFolder("sub");
    QImage image(300, 100, QImage::Format_ARGB32);
    image.fill(Qt::blue);
    image.save(QString::fromStdString(disk.path("blue.png")));
    auto const usual = fileIcon("sub");
    auto const inFile = [&](std::string const& name) { return icons.imageIn(Url::fromPath(disk.path(name)), usual); };
    std::pair<ImageRef, QColor> const rows[] = { { icons.namedIcon("star", usual), Qt::green }, { icons.namedIcon("moon", usual), Qt::red },
        { inFile("blue.png"), Qt::blue }, { inFile("gone.png"), Qt::red } };
    for (auto const& [chosen, color] : rows) {
        EXPECT_EQ(imageOf(chosen).pixelColor(8, 8), color);
        EXPECT_TRUE(isMenuIconReady(chosen));
        EXPECT_EQ(largePictureOf(chosen, 32, 1).toImage().pixelColor(16, 16), color);
    }
    EXPECT_EQ(imageOf(inFile("blue.png")).pixelColor(8, 1).alpha(), 0) << "in its own proportions";
    image.scaled(3000, 1000).save(QString::fromStdString(disk.path("large.png")));
    EXPECT_EQ(imageOf(inFile("large.png")).pixelColor(8, 8), QColor(Qt::red)) << "no menu waits for a large one";
    time.runTasks();
    EXPECT_EQ(imageOf(inFile("large.png")).pixelColor(8, 8), QColor(Qt::blue)) << "the next one shows it";
    auto const theme = QIcon::themeName().toStdString();
    disk.write("themes/child/index.theme", "[Icon Theme]\nDirectories=all\nInherits=" + theme + "\n");
    for (auto const* name : { "moon.svg", "star.svg", "folder-red.svg" })
        disk.write("themes/child/all/" + std::string(name), "");
    disk.write("themes/" + theme + "/all/moon-full.png", "");
    EXPECT_EQ(iconsOfTheme("child", { disk.path("themes") }), (std::vector<std::string> { "folder", "folder-red", "moon", "star" }))
        << "the toolkit takes the nearer theme's moon for a full one";
}

TEST_F(ThemeIconSourceTest, WaitForTheirTurnTheFirstTimeAndAreReadyFromThenOn)
{
    installTheme({ { "folder", Qt::red } });
    disk.makeFolder("one");
    disk.makeFolder("two");
    auto const one = fileIcon("one");
    EXPECT_FALSE(isMenuIconReady(one));
    (void)menuIconOf(one);
    EXPECT_TRUE(isMenuIconReady(one));
    EXPECT_TRUE(isMenuIconReady(fileIcon("one"))) << "in the next menu too";
    EXPECT_FALSE(isMenuIconReady(fileIcon("two"))) << "nobody has looked at it yet";
    QIcon::setThemeName(QStringLiteral("none"));
    EXPECT_FALSE(isMenuIconReady(fileIcon("one"))) << "another theme, other pictures";
}

TEST_F(ThemeIconSourceTest, FollowAFileThatBecameAnotherOneByTheNextMenu)
{
    installTheme({ { "folder", Qt::red }, { "text-x-generic", Qt::green } });
    disk.makeFolder("x.txt");
    (void)menuIconOf(fileIcon("x.txt"));
    std::filesystem::remove(disk.path("x.txt"));
    disk.write("x.txt", "");
    EXPECT_EQ(imageOf(fileIcon("x.txt")).pixelColor(8, 8), QColor(Qt::red)) << "drawn at once from what is known";
    time.advance(std::chrono::seconds(1));
    time.runTasks();
    EXPECT_EQ(imageOf(fileIcon("x.txt")).pixelColor(8, 8), QColor(Qt::green));
}

TEST_F(ThemeIconSourceTest, MarkLinks)
{
    installTheme({ { "folder", Qt::red } });
    disk.makeFolder("sub");
    disk.link("link", disk.path("sub"));
    auto const plain = imageOf(fileIcon("sub"));
    auto const link = imageOf(fileIcon("link"));
    EXPECT_NE(plain, link);
    EXPECT_EQ(plain.copy(8, 0, 8, 8), link.copy(8, 0, 8, 8)) << "the mark takes one corner";
}

TEST_F(ThemeIconSourceTest, OutliveTheirSource)
{
    ImageRef image;
    {
        ThemeIconSource shortLived(time, time);
        image = shortLived.fileIcon(Url::fromPath(disk.makeFolder("sub")));
        (void)menuIconOf(image);
        (void)shortLived.fileIcon(Url::fromPath(disk.path("sub")));
    }
    time.advance(std::chrono::seconds(1));
    time.runTasks();
    EXPECT_GT(paintedPixels(imageOf(image)), 30);
}

std::string published(std::vector<std::pair<std::string, std::string>> const& texts)
{
    auto const number = [](std::uint32_t value) { return std::string { static_cast<char>(value), static_cast<char>(value >> 8), 0, 0 }; };
    auto const padded = [](std::string text) { return text + std::string((4 - text.size() % 4) % 4, '\0'); };
    std::string bytes = std::string(4, '\0') + number(1) + number(static_cast<std::uint32_t>(texts.size()) + 2);
    auto const head = [&](char type, std::string const& name) { return std::string { type, 0, static_cast<char>(name.size()), 0 } + padded(name) + number(0); };
    bytes += head(0, "Xft/DPI") + number(96) + head(2, "Color") + std::string(8, '\1');
    for (auto const& [name, text] : texts)
        bytes += head(1, name) + number(static_cast<std::uint32_t>(text.size())) + padded(text);
    return bytes;
}

TEST(XSettings, AreReadAmongOthersAndNeverBeyondTheirEnd)
{
    auto const bytes = published({ { "Net/ThemeName", "Adwaita" }, { "Net/IconThemeName", "Papirus" } });
    EXPECT_EQ(xSetting(bytes, "Net/IconThemeName"), "Papirus");
    EXPECT_EQ(xSetting(bytes, "Xft/DPI"), "") << "no text";
    EXPECT_EQ(xSetting(bytes, "Missing"), "");
    EXPECT_EQ(xSettingNumber(bytes, "Xft/DPI"), 96);
    EXPECT_EQ(xSettingNumber(bytes, "Net/ThemeName"), std::nullopt) << "no number";
    for (std::size_t length = 0; length < bytes.size() - 1; ++length)
        EXPECT_EQ(xSetting(std::string_view(bytes).substr(0, length), "Net/IconThemeName"), "") << length;
    std::string huge = bytes;
    huge[8] = huge[9] = huge[10] = '\xFF';
    EXPECT_EQ(xSetting(huge, "Missing"), "");
}

} // namespace
} // namespace zv
