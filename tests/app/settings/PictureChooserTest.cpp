#include "app/settings/PictureChooser.h"

#include "tests/app/shell/ProgramFixture.h"

namespace zv {
namespace {

struct PictureChooserTest : ProgramFixture {
    PictureChooserTest() { launchWith({ item(MenuItemKind::sleep) }); }
    PictureChooser& pictures() { return app->settingsModels().pictures(); }
    MenuItem const& only() { return app->delegate().store().items().front(); }
    Lines images() const
    {
        auto const names = machine.files.names(Url::fromPath("/data/.Items/Pictures")).value();
        return { names.begin(), names.end() };
    }
};

TEST_F(PictureChooserTest, NamesAreFoundByAllTheirWordsAndListedOnce)
{
    std::pair<char const*, Lines> const rows[]
        = { { "", { "folder-music", "folder-red", "user-home" } }, { "RED  fold", { "folder-red" } }, { "folder-m", {} }, { "home blue", {} } };
    for (auto const& [search, expected] : rows) {
        Lines found;
        for (auto const* name : pictures().names(search))
            found.push_back(*name);
        EXPECT_EQ(found, expected) << search;
    }
    EXPECT_EQ(front.pictures.listed, 1);
}

TEST_F(PictureChooserTest, AnImageIsCopiedAndLeavesOnceNothingPointsAtIt)
{
    front.pictures.images = { { "/a.png", fakes::bytesOf("a") }, { "/b.png", fakes::bytesOf("b") } };
    pictures().takeImage(only().id, Url::fromPath("/letter.txt"));
    EXPECT_FALSE(pictureOf(only()));
    EXPECT_EQ(front.alerts.shown.size(), 1U) << "a letter is no image";
    pictures().takeImage(only().id, Url::fromPath("/a.png"));
    ASSERT_EQ(images().size(), 1U);
    EXPECT_EQ(pictureOf(only()), (ItemPicture { ItemPicture::Kind::image, images()[0] }));
    machine.time.advance(std::chrono::minutes(2)); // a backup has the first image
    pictures().takeImage(only().id, Url::fromPath("/b.png"));
    pictures().takeImage(only().id, Url::fromPath("/a.png"));
    ASSERT_EQ(images().size(), 3U) << "undo finds them";
    auto const kept = pictureOf(only())->name;
    app.reset();
    launch();
    (void)pictures();
    machine.time.runTasks();
    EXPECT_EQ(images().size(), 2U);
    EXPECT_EQ(pictureOf(only())->name, kept);
    pictures().reset(only().id);
    EXPECT_FALSE(pictureOf(only()));
}

} // namespace
} // namespace zv
