#include "app/updates/UpdateChoice.h"
#include "app/updates/VersionOrder.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(VersionOrder, OrdersAsPeopleReadVersions)
{
    struct Row {
        std::string lesser, greater, why;
    };
    Row const rows[] = {
        { "1.0", "1.0.1", "the longer one is greater" },
        { "1.9", "1.10", "numbers by value" },
        { "1.0rc1", "1.0", "a pre-release comes first" },
        { "1.0-rc1", "1.0", "also behind a separator" },
        { "1.0 beta", "1.0", "also behind a blank" },
        { "1.0b2", "1.0b10", "numbers within it too" },
        { "1.0a1", "1.0b1", "words by their letters" },
        { "1.0b3", "1.0.1", "a word is less than a separator" },
        { "1.0.9", "1.1b1", "the first difference decides" },
        { "99999999999999999999998", "99999999999999999999999", "however long" },
        { "", "0", "nothing is the least" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_TRUE(compareVersions(row.lesser, row.greater) < 0) << row.lesser << " < " << row.greater;
        EXPECT_TRUE(compareVersions(row.greater, row.lesser) > 0) << row.greater << " > " << row.lesser;
    }
    EXPECT_TRUE(compareVersions("1.007", "1.7") == 0);
}

AppcastItem item(std::string version)
{
    AppcastItem made;
    made.version = std::move(version);
    made.downloadAddress = "https://a.b/c.deb";
    return made;
}

TEST(UpdateChoice, OffersTheNewestThatSuits)
{
    struct Row {
        std::string why;
        void (*change)(AppcastItem&, UpdateCriteria&);
        bool isOffered;
    };
    Row const rows[] = {
        { "as it is", [](auto&, auto&) {}, true },
        { "not newer", [](auto& i, auto&) { i.version = "1.0"; }, false },
        { "older", [](auto& i, auto&) { i.version = "0.9"; }, false },
        { "nothing to download and no page", [](auto& i, auto&) { i.downloadAddress.clear(); }, false },
        { "a file that is no package", [](auto& i, auto&) { i.downloadAddress = "https://a.b/c.desktop"; }, false },
        { "a page is enough", [](auto& i, auto&) { i.downloadAddress.clear(), i.releasePage = "https://a.b"; }, true },
        { "a page that is not of the web",
            [](auto& i, auto&) {
                i.downloadAddress.clear();
                i.releasePage = "file:///usr/share/applications/x.desktop";
            },
            false },
        { "a version that no window could show", [](auto& i, auto&) { i.version = "2." + std::string(100, '0'); }, false },
        { "a name that no window could show", [](auto& i, auto&) { i.displayVersion = std::string(101, '2'); }, false },
        { "a channel not asked for", [](auto& i, auto&) { i.channel = "beta"; }, false },
        { "a channel asked for", [](auto& i, auto& c) { i.channel = "beta", c.channels = { "beta" }; }, true },
        { "of another system", [](auto& i, auto&) { i.operatingSystem = "macos"; }, false },
        { "of this system", [](auto& i, auto&) { i.operatingSystem = "linux"; }, true },
        { "the system is too old", [](auto& i, auto&) { i.minimumSystemVersion = "13"; }, false },
        { "the system is new enough", [](auto& i, auto&) { i.minimumSystemVersion = "12"; }, true },
        { "the system is too new", [](auto& i, auto&) { i.maximumSystemVersion = "11.9"; }, false },
        { "limits on an unknown system", [](auto& i, auto& c) { i.minimumSystemVersion = "13", c.systemVersion.clear(); }, true },
        { "skipped", [](auto&, auto& c) { c.skippedVersion = "2.0"; }, false },
        { "skipped, but critical", [](auto& i, auto& c) { c.skippedVersion = "2.0", i.isCritical = true; }, true },
        { "skipped, and critical for older ones only", [](auto& i, auto& c) { c.skippedVersion = "2.0", i.isCritical = true, i.criticalBefore = "1.0"; },
            false },
        { "skipped, but critical for this one", [](auto& i, auto& c) { c.skippedVersion = "2.0", i.isCritical = true, i.criticalBefore = "1.1"; }, true },
    };
    for (auto const& row : rows) {
        auto offered = item("2.0");
        UpdateCriteria criteria { "1.0", "linux", "12", {}, { ".deb" }, {} };
        row.change(offered, criteria);
        EXPECT_EQ(chooseUpdate({ offered }, criteria).has_value(), row.isOffered) << row.why;
    }
    EXPECT_EQ(chooseUpdate({ item("1.5"), item("3.0"), item("2.0") }, { "1.0", "linux", "", {}, { ".deb" }, {} })->version, "3.0");

    auto withStrangePage = item("2.0");
    withStrangePage.releasePage = "smb://nas/notes";
    EXPECT_EQ(chooseUpdate({ withStrangePage }, { "1.0", "linux", "", {}, { ".deb" }, {} })->releasePage, "") << "its page is not opened";
}

TEST(UpdateNotes, BecomePlainText)
{
    struct Row {
        std::string notes, text;
    };
    Row const rows[] = {
        { "<h1>New</h1>\n<ul><li>A &amp; B</li><li class=\"x\">C</li></ul>", "New\n\n• A & B\n• C" },
        { "a<br/>b<script>alert(1)</script>", "a\nbalert(1)" },
        { "1 < 2 & 3; &Uuml; &notclosed", "1 < 2 & 3; &Uuml; &notclosed" },
        { "<p>one</p>\n\n\n<p>two</p>", "one\n\ntwo" },
        { "it&#39;s&#x2014;&#x1f600; &#xd800;&#0;", "it's—😀 &#0;" },
        { std::string(2'000'000, '<'), std::string(2'000'000, '<') },
        { "", "" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(plainTextOfNotes(row.notes), row.text);
}

} // namespace
} // namespace zv
