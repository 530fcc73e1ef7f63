#include "app/model/OwnItems.h"
#include "tests/fakes/FakeFiles.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Kind = OwnItem::Kind;

std::string textOf(fakes::FakeFileSystem const& files, Url const& file)
{
    auto const bytes = files.read(file).value();
    return { reinterpret_cast<char const*>(bytes.data()), bytes.size() };
}

TEST(OwnItems, AreFilesThatEveryVersionOpens)
{
    struct Row {
        SystemKind system;
        OwnItem item;
        std::string ending, holds;
    };
    OwnItem const quiet { Kind::command, "It's", "echo 'a' \"$B\"", "/my folder", false };
    auto const shown = OwnItem { Kind::command, "Top", "top", "", true };
    auto const linux = SystemKind::linuxDesktop;
    Row const rows[] = {
        { linux, { Kind::link, "A\nB", "https://x.org/a\\b", "", false }, ".desktop", "Type=Link\nName=A B\nURL=https://x.org/a\\\\b\n" },
        { SystemKind::macOS, { Kind::link, "A", "https://x.org/?a&b", "", false }, ".webloc", "<string>https://x.org/?a&amp;b</string>" },
        { linux, quiet, ".desktop", "Terminal=false" },
        { linux, shown, ".desktop", "Terminal=true" },
        { SystemKind::macOS, quiet, ".sh", "cd '/my folder' || exit 1\nexec \"${SHELL:-/bin/sh}\" -c 'echo '\\''a'\\'' \"$B\"'\n" },
        { SystemKind::macOS, shown, ".command", "-c 'top'\nexec \"${SHELL:-/bin/sh}\"\n" },
        { linux, { Kind::scriptMenu, "S", "ls", "", false }, ".menu.sh", "-c 'ls'\n" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.ending + row.item.title);
        fakes::FakeFileSystem files;
        OwnItems const items(row.system, Url::fromPath("/data/Items"), files);
        auto const file = items.write(row.item).value();
        EXPECT_TRUE(file.path().starts_with("/data/.Items/") && file.path().ends_with(row.ending)) << file.path();
        EXPECT_NE(textOf(files, file).find(row.holds), std::string::npos) << textOf(files, file);
        EXPECT_TRUE(files.startable.contains(file.path()));
        EXPECT_EQ(items.isScriptMenu(file), row.item.kind == Kind::scriptMenu);
        EXPECT_EQ(items.isQuietScript(file), row.ending == ".sh");
        EXPECT_EQ(items.read(file), row.item);
    }
}

TEST(OwnItems, ChangeInTheirPlaceAndKnowNoOthers)
{
    fakes::FakeFileSystem files;
    OwnItems const items(SystemKind::macOS, Url::fromPath("/data/Items"), files);
    auto const quiet = items.write({ Kind::command, "a", "a", "", false }).value();
    auto const shown = items.write({ Kind::command, "a", "a", "", true }, quiet).value();
    EXPECT_TRUE(shown.path().ends_with(".command") && items.read(shown)->inTerminal);
    EXPECT_FALSE(files.exists(quiet));
    for (auto const* path : { "/data/Items/a.menu.sh", "/tmp/a.menu.sh", "/data/.Items/b/a.menu.sh", "/data/.Items/../a.menu.sh" })
        EXPECT_FALSE(items.isScriptMenu(Url::fromPath(path))) << path;
    files.readOnly.insert("/data/.Items");
    EXPECT_FALSE(items.write({ Kind::link, "a", "x:y", "", false }));
}

} // namespace
} // namespace zv
