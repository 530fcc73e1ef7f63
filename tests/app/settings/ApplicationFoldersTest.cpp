#include "app/settings/ApplicationFolders.h"

#include "tests/fakes/FakeFolderReader.h"

#include <gtest/gtest.h>

#include <map>

namespace zv {
namespace {

using Child = fakes::FakeFolderReader::Child;

Child application(std::string name, std::string localizedName = {}) { return { std::move(name), { true, true }, std::move(localizedName), false }; }
Child folder(std::string name) { return { std::move(name), { true, false }, {}, false }; }

struct InstalledApplicationsTest : testing::Test {
    std::vector<std::string> find(std::vector<Url> const& folders)
    {
        std::vector<std::string> found;
        auto const identifierOf = [&](Url const& file) { return identifiers[file.path()]; };
        for (auto const& each : applicationsIn(folders, reader, identifierOf))
            found.push_back(each.name + " " + each.file.path());
        return found;
    }
    using Found = std::vector<std::string>;

    fakes::FakeFolderReader reader;
    std::map<std::string, std::string> identifiers;
};

TEST_F(InstalledApplicationsTest, AreThoseOfFoldersAndOfWhatIsBelow)
{
    reader.folders["/A"] = { application("Mail.app", "Post.app"), application("Maps.app", "Karten"), folder("Utilities"), { "Notes.app", {}, {}, false },
        { "read me.txt", {}, {}, false }, application(".Hidden.app"), application("Kit.framework") };
    reader.folders["/A/Mail.app"] = { application("Inner.app") };
    reader.folders["/A/Kit.framework"] = { application("Inner.app") };
    reader.folders["/A/Utilities"] = { application("Terminal.app"), application("Bad\xff.app") };
    EXPECT_EQ(find({ Url::fromPath("/A"), Url::fromPath("/missing") }),
        (Found { "Post /A/Mail.app", "Karten /A/Maps.app", "Terminal /A/Utilities/Terminal.app", "Bad\xEF\xBF\xBD /A/Utilities/Bad\xff.app" }))
        << "no bundle is looked into; a file of that name is no application";
    EXPECT_EQ(reader.readings.count("/A/Mail.app"), 0U);
}

TEST_F(InstalledApplicationsTest, LinksToApplicationsCountAndLinksToFoldersDoNot)
{
    reader.folders["/A"] = { { "Safari.app", { true, true }, {}, true }, { "all", { true, false }, {}, true } };
    reader.folders["/A/all"] = { application("Other.app") };
    EXPECT_EQ(find({ Url::fromPath("/A") }), (Found { "Safari /A/Safari.app" }));
}

TEST_F(InstalledApplicationsTest, TheFirstOfSeveralWithOneIdentifierStandsForAll)
{
    reader.folders["/home/A"] = { application("Editor.app"), application("Script.app") };
    reader.folders["/A"] = { application("Editor 2.app"), application("Script.app") };
    identifiers = { { "/home/A/Editor.app", "org.example.editor" }, { "/A/Editor 2.app", "org.example.editor" } };
    EXPECT_EQ(
        find({ Url::fromPath("/home/A"), Url::fromPath("/A") }), (Found { "Editor /home/A/Editor.app", "Script /home/A/Script.app", "Script /A/Script.app" }))
        << "those without one all stay";
}

TEST_F(InstalledApplicationsTest, DoNotLieDeep)
{
    reader.folders["/A"] = { folder("1") };
    reader.folders["/A/1"] = { folder("2"), application("One.app") };
    reader.folders["/A/1/2"] = { folder("3"), application("Two.app") };
    reader.folders["/A/1/2/3"] = { application("Three.app") };
    EXPECT_EQ(find({ Url::fromPath("/A") }), (Found { "Two /A/1/2/Two.app", "One /A/1/One.app" }));
}

} // namespace
} // namespace zv
