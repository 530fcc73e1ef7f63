#include "platform/linux/icons/PictureFiles.h"
#include "platform/linux/icons/UserThemes.h"

#include "tests/fakes/FakeTime.h"
#include "tests/linux/TemporaryFolder.h"

#include <QIcon>
#include <QImageReader>

#include <sys/stat.h>

namespace zv {
namespace {

struct PictureFilesTest : testing::Test {
    std::string picture(std::string const& name, int width, int height)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::red);
        image.save(QString::fromStdString(disk.path(name)));
        return disk.path(name);
    }

    tests::TemporaryFolder disk;
    fakes::FakeTime time;
    std::vector<std::string> read;
    PictureFiles files { time, time, [this](std::string const& path) { read.push_back(path); } };
};

TEST_F(PictureFilesTest, OnlySmallRegularOnesAreReadAtOnce)
{
    picture("small.png", 1024, 1024);
    picture("wide.png", 1025, 1);
    std::filesystem::copy_file(disk.path("small.png"), disk.path("heavy.png"));
    std::filesystem::resize_file(disk.path("heavy.png"), (1 << 20) + 1);
    ASSERT_EQ(mkfifo(disk.path("pipe.png").c_str(), 0600), 0);
    bool const drawsSvg = QImageReader::supportedImageFormats().contains("svg");
    auto const drawing = [&](std::string const& name, std::string const& content) {
        disk.write(name, "<?xml version=\"1.0\"?><svg xmlns=\"http://www.w3.org/2000/svg\" width=\"16\" height=\"16\">" + content + "</svg>");
    };
    drawing("drawing.svg", "<rect width=\"16\" height=\"16\"/>");
    drawing("other file.svg", "<image href=\"/dev/zero\"/>");
    std::string uses;
    for (int i = 0; i < 20; ++i)
        uses += "<use href=\"#a\"/>";
    drawing("repeats.svg", uses);
    disk.write("entity.svg", "<?xml version=\"1.0\"?><!DOCTYPE svg [<!ENTITY a \"b\">]><svg xmlns=\"http://www.w3.org/2000/svg\" width=\"16\" height=\"16\"/>");
    struct Row {
        char const* name;
        bool isQuick;
    };
    Row const rows[] = { { "small.png", true }, { "wide.png", false }, { "heavy.png", false }, { "pipe.png", false }, { "gone.png", false },
        { "drawing.svg", drawsSvg }, { "other file.svg", false }, { "repeats.svg", false }, { "entity.svg", false } };
    for (auto const& row : rows)
        EXPECT_EQ(files.isQuick(disk.path(row.name)), row.isQuick) << row.name;
    EXPECT_EQ(files.picture(disk.path("small.png")).size(), QSize(64, 64)) << "no larger than it is shown";
    EXPECT_EQ(time.pendingBackground(), 0U);
}

TEST_F(PictureFilesTest, OthersComeLater)
{
    auto const large = picture("large.png", 3000, 1500);
    ASSERT_EQ(mkfifo(disk.path("pipe.png").c_str(), 0600), 0);
    EXPECT_TRUE(files.picture(large).isNull());
    EXPECT_TRUE(files.picture(large).isNull() && files.picture(disk.path("pipe.png")).isNull());
    EXPECT_EQ(time.pendingBackground(), 2U) << "each once";
    time.runTasks();
    EXPECT_EQ(read, std::vector { large }) << "nobody waits for a pipe";
    EXPECT_EQ(files.picture(large).size(), QSize(64, 32));
}

TEST_F(PictureFilesTest, FewAreReadAtOnceAndNoneForEver)
{
    auto const large = picture("large.png", 2000, 1);
    for (int i = 0; i < 30; ++i)
        (void)files.picture(disk.link("link" + std::to_string(i), large));
    EXPECT_EQ(time.pendingBackground(), 2U);
    time.advance(std::chrono::seconds(6));
    EXPECT_EQ(time.pendingBackground(), 4U) << "two hang, two more are tried";
    time.advance(std::chrono::minutes(1));
    EXPECT_EQ(time.pendingBackground(), 8U) << "and no more";
    time.runTasks();
    EXPECT_EQ(read.size(), 22U) << "what comes too late is not shown";
}

TEST_F(PictureFilesTest, ThemesOfTheUsersOwnAreLookedThrough)
{
    auto const previous = QIcon::themeSearchPaths();
    disk.write("icons/Mine/index.theme", "[Icon Theme]\nName=Mine\nDirectories=16x16/apps,scalable\n");
    auto const first = disk.write("icons/Mine/16x16/apps/a-b.png", "");
    auto const second = disk.write("icons/Mine/scalable/a.svg", "");
    disk.write("icons/Mine/elsewhere/a.png", "");
    QIcon::setThemeSearchPaths({ QString::fromStdString(disk.path("icons")) });
    constexpr uid_t nobody = 4'000'000'000;
    EXPECT_EQ(UserThemes(nobody).filesOf("a-b-c"), (std::vector { first, second }));
    EXPECT_EQ(UserThemes(geteuid()).filesOf("a-b-c"), std::vector<std::string> {}) << "the system's own are not";
    QIcon::setThemeSearchPaths(previous);
}

} // namespace
} // namespace zv
