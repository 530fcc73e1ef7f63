#include "app/shell/Begging.h"

#include "app/shell/NotesText.h"
#include "base/Translation.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/FakeTime.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

struct BeggingTest : testing::Test {
    Begging make() { return Begging({ defaults, resources, windows, application, time }); }

    /// Starts the program once.
    void launch(Environment const& environment = {}, bool readOnly = false)
    {
        auto begging = make();
        begging.showIfDue(environment, readOnly);
        begging.showIfDue(environment, readOnly);
        time.runTasks();
    }

    fakes::FakeUserDefaults defaults;
    fakes::FakeResources resources;
    fakes::FakeNotesWindows windows;
    fakes::FakeApplication application;
    fakes::FakeTime time;
};

TEST_F(BeggingTest, ShowsItselfOnThreeOfTheFirstFourteenLaunches)
{
    std::vector<int> shown;
    for (int launchNumber = 1; launchNumber <= 14; ++launchNumber) {
        int const before = windows.raised;
        launch();
        EXPECT_EQ(defaults.integerForKey("LaunchCount"), launchNumber) << "one launch counts once";
        if (windows.raised > before)
            shown.push_back(launchNumber);
    }
    EXPECT_EQ(shown, (std::vector { 2, 9, 13 }));
}

TEST_F(BeggingTest, NeitherCountsNorAsksWhereNobodyWouldSeeIt)
{
    struct Row {
        Environment environment;
        bool readOnly;
    };
    Row const rows[] = { { { { "XCTestBundlePath", "" } }, false }, { { { "XCTestSessionIdentifier", "1" } }, false },
        { { { "XCTestConfigurationFilePath", "x" } }, false }, { {}, true } };
    for (auto const& row : rows)
        launch(row.environment, row.readOnly);
    EXPECT_TRUE(defaults.writes.empty());
    EXPECT_EQ(windows.raised, 0);
}

TEST_F(BeggingTest, MakesOneWindowAndFitsItToTheText)
{
    resources.files["Begging.rtf"] = fakes::bytesOf("{\\rtf1}");
    auto begging = make();
    begging.show();
    begging.show();
    ASSERT_EQ(windows.layouts.size(), 1U);
    EXPECT_EQ(windows.raised, 2);
    EXPECT_EQ(windows.layouts[0].height, 341) << "the text's height, rounded up, and 40";

    windows.textHeight = 2000;
    make().show();
    EXPECT_EQ(windows.layouts[1].height, 560);
    EXPECT_EQ(windows.layouts[1].width, 480);
}

TEST(NotesText, TranslatesEachParagraphWithinItsForm)
{
    std::string const english
        = "{\\rtf1\n\\pard\\sa60\\fs26\\b Thanks\\b0\\par\n\\pard\\sa60 \\bullet  Hold \\b Alt\\b0 \\u8230?\\par\n\\pard\\sa0 Left\\par\n}";
    std::string const german
        = "{\\rtf1\n\\pard\\sa60\\fs26\\b Danke\\b0\\par\n\\pard\\sa60 \\bullet  \\b Alt\\b0  \\{\\u228?\\u-10188?\\u-8930?\\}\\par\n\\pard\\sa0 Left\\par\n}";
    translateBy([](Sentence const& sentence, char const*, unsigned long) {
        std::string_view const key = sentence.english;
        return std::string(key == "Thanks" ? "Danke" : key == "Hold <b>Alt</b>…" ? "<b>Alt</b> {ä𝄞}" : "");
    });
    EXPECT_EQ(notesInUsersLanguage(fakes::bytesOf(english)), fakes::bytesOf(german));
    translateBy(nullptr);
    EXPECT_EQ(notesInUsersLanguage(fakes::bytesOf(english)), fakes::bytesOf(english));
}

TEST_F(BeggingTest, OpensEmptyWhenTheNotesAreMissing)
{
    make().show();
    EXPECT_FALSE(windows.hadText);
    EXPECT_EQ(windows.raised, 1);
}

} // namespace
} // namespace zv
