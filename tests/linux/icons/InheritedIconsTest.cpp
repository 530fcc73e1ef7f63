#undef QT_NO_CAST_FROM_ASCII // plain literals keep the tables readable

#include "platform/linux/icons/InheritedIcons.h"

#include "tests/linux/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

struct InheritedIcons : testing::Test {
    InheritedIcons()
    {
        inherits("near/Dark", "Base, Wide");
        inherits("far/Dark", "Elsewhere");
        inherits("far/Base", "Old,Dark");
        inherits("far/Wide", "hicolor");
    }
    void inherits(std::string const& theme, std::string const& parents)
    {
        disk.write(theme + "/index.theme", "[Icon Theme]\nName=" + theme + "\nInherits=" + parents + "\n[Other]\nInherits=none\n");
    }
    [[nodiscard]] QString path(std::string const& name) const { return QString::fromStdString(disk.path(name)); }

    tests::TemporaryFolder disk;
    QStringList folders { path("near"), path("far") };
};

TEST_F(InheritedIcons, ThemesAreFollowedFromTheNearestOn)
{
    struct Row {
        char const* theme;
        QStringList ancestors;
        char const* why;
    };
    Row const rows[] = {
        { "Dark", { "Base", "Wide", "Old", "hicolor" }, "each once, though one leads back; the first folder that has the theme tells" },
        { "Wide", { "hicolor" }, "one that has no file" },
        { "Gone", {}, "a theme that is not there" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(themeAncestors(row.theme, folders), row.ancestors) << row.why;
}

TEST_F(InheritedIcons, TheFirstThemeThatHasThePictureGivesAllItsSizes)
{
    for (auto const* picture : { "far/Base/16x16/actions/system-shutdown.png", "far/Base/scalable/apps/system-shutdown.svg",
             "near/Wide/48x48/apps/system-shutdown.png", "near/Base/24x24/actions/system.png" })
        disk.write(picture, "");
    QStringList const themes { "Base", "Wide" };
    EXPECT_EQ(iconFilesIn(themes, folders, "system-shutdown"),
        (QStringList { path("far/Base/16x16/actions/system-shutdown.png"), path("far/Base/scalable/apps/system-shutdown.svg") }));
    EXPECT_EQ(iconFilesIn(themes, folders, "system-reboot"), QStringList()) << "never by a shorter name";
}

} // namespace
} // namespace zv
