#include "app/model/ItemPicture.h"
#include "app/model/KeptEntries.h"
#include "app/model/SetupDocument.h"
#include "platform/text/PropertyListFormat.h"
#include "tests/cli/CommandLineFixture.h"

namespace zv {
namespace {

struct SetupCommandsTest : CommandLineFixture {
    SetupCommandsTest()
    {
        machine.kind = SystemKind::linuxDesktop;
        addFile("/home/ada/Notes.md", "");
        addFile("/data/.Items/Pictures/sun.png", png);
        defaults.keep("RecentItemsLimit", 7);
        defaults.keep("ShowIcons", false);
        KeptEntries(defaults).toggle(MenuItemKind::recentDocs, Url::fromPath("/home/ada/Notes.md"));
    }
    static MenuItem item(char const* title, std::string const& path)
    {
        auto made = MenuItem::ofKind(MenuItemKind::fsObject);
        made.title = title;
        made.location = ItemLocation { .path = path };
        return made;
    }
    void store(std::vector<MenuItem> const& items) { defaults.keep(MenuStore::defaultsKey, toPropertyList(items)); }
    [[nodiscard]] std::vector<MenuItem> stored() const { return menuItemsFromPropertyList(*defaults.stored.find("Menu")).value(); }
    [[nodiscard]] Result<Url> own(OwnItem const& made) { return OwnItems(machine.kind, machine.places.itemsFolder, files).write(made); }

    std::string const png = "\x89PNG\r\n\x1a\n…";
};

TEST_F(SetupCommandsTest, AllThatIsExportedIsThereOnAnotherMachineAndWhatIsMissingIsListed)
{
    OwnItem const backUp { OwnItem::Kind::command, "Back\u202eUp", "rsync -a ~ /mnt", "/home/ada/bin", true };
    auto group = MenuItem::ofKind(MenuItemKind::submenu);
    group.children = { item("Back\u202eUp", own(backUp)->path()), item("Notes", "/home/ada/Notes.md"), item("Away", "/opt/away") };
    setPicture(group.children[1], ItemPicture { ItemPicture::Kind::image, "sun.png" });
    store({ group });
    ASSERT_EQ(run({ "export", "--all", "/here/all.plist" }), (Outcome { 0, "", "" }));
    auto const exported = fakes::textOf(files.read(Url::fromPath("/here/all.plist")).value());

    machine.files.nodes.clear();
    defaults.stored = {};
    machine.places.home = "/home/bob";
    addFile("/here/all.plist", exported);
    addFile("/home/bob/Notes.md", "");
    addFile("/data/.Items/Pictures/sun.png", "another one");
    defaults.locked = "ShowIcons";
    std::string const contents
        = "A menu of 4 items.\n3 preferences.\n1 picture.\n1 command, which runs here when it is chosen:\n  “Back\uFFFDUp”: rsync -a ~ /mnt\n"
          "Locked by an administrator of this computer, and left as it is:\n  ShowIcons\n"
          "Not on this computer:\n  “Back\uFFFDUp”: /home/bob/bin\n  “Away”: /opt/away\n";
    EXPECT_EQ(run({ "import", "--all", "--check", "all.plist" }), (Outcome { 0, contents, "" }));
    input = "n\n";
    EXPECT_EQ(run({ "import", "--all", "all.plist" }).err, "zanthe-vell: nothing was imported\n");
    EXPECT_TRUE(defaults.stored.empty());
    EXPECT_EQ(run({ "import", "--all", "--yes", "all.plist" }).status, 0);

    auto const taken = stored()[0].children;
    auto const file = Url::fromPath(*taken[0].location->path);
    EXPECT_EQ(OwnItems(machine.kind, machine.places.itemsFolder, files).read(file)->folder, "/home/bob/bin");
    EXPECT_EQ(taken[1].location->path, "/home/bob/Notes.md");
    auto const image = [&](std::string const& name) { return fakes::textOf(files.read(Url::fromPath("/data/.Items/Pictures/" + name)).value()); };
    EXPECT_EQ(image(*imageNameOf(taken[1])), png);
    EXPECT_EQ(image("sun.png"), "another one");
    EXPECT_EQ(defaults.integerForKey("RecentItemsLimit"), 7);
    EXPECT_FALSE(defaults.stored.contains("ShowIcons"));
    EXPECT_TRUE(KeptEntries(defaults).has(MenuItemKind::recentDocs, Url::fromPath("/home/bob/Notes.md")));
    auto const count = files.nodes.size();
    run({ "export", "--all", "again.plist" });
    EXPECT_EQ(run({ "import", "--all", "--yes", "again.plist" }).status, 0);
    EXPECT_EQ(files.nodes.size(), count + 2) << "the export and a backup of the menu: what is here already is not written again";
}

TEST_F(SetupCommandsTest, NothingOfAFileThatIsWrongIsTaken)
{
    store({});
    run({ "export", "--all", "/here/all.plist" });
    auto const good = readPropertyList(files.read(Url::fromPath("/here/all.plist")).value()).value();
    auto const id = Uuid::random().toString();
    auto const record = [](OwnItem const& made) { return ownItemRecord(made); };
    struct Row {
        char const* key;
        PropertyList value;
        int status;
    };
    auto const images = [&](std::string const& name, std::string const& data) {
        auto const* begin = reinterpret_cast<std::byte const*>(data.data());
        return PropertyListDictionary { { name, PropertyListData(begin, begin + data.size()) } };
    };
    auto const owns = [&](std::string const& key, PropertyList const& value) { return PropertyListDictionary { { key, value } }; };
    Row const rows[] = {
        { "Pictures", images("sun.png", png), 0 },
        { "Pictures", images("../sun.png", png), 1 },
        { "Pictures", images(".sun.png", png), 1 },
        { "Pictures", images("sun.png", "#!/bin/sh"), 1 },
        { "Pictures", images("sun.png", png + std::string(SetupLimits::imageSize, ' ')), 1 },
        { "OwnItems", owns(id, record({ OwnItem::Kind::link, "a", "https://a.org" })), 0 },
        { "OwnItems", owns(id, record({ OwnItem::Kind::command, "a", "ls\nrm -r ~" })), 1 },
        { "OwnItems", owns(id, record({ OwnItem::Kind::command, "a", "ls", "../" })), 1 },
        { "OwnItems", owns(id, record({ OwnItem::Kind::scriptMenu, "a", std::string(SetupLimits::textLength + 1, 'a') })), 1 },
        { "OwnItems", owns("../" + id, record({ OwnItem::Kind::link, "a", "https://a.org" })), 1 },
        { "OwnItems", owns(id, PropertyListDictionary { { "kind", "hologram" } }), 0 },
        { "Preferences", PropertyListDictionary { { "ShowIcons", "maybe" }, { "Feed", "https://a.org" } }, 0 },
        { "Preferences", 7, 1 },
        { "Format", "another", 1 },
        { "Menu", PropertyListArray { 7 }, 1 },
    };
    for (auto const& row : rows) {
        auto document = *good.dictionary();
        document.set(row.key, row.value);
        addFile("/here/changed.plist", fakes::textOf(writePropertyList(document).value()));
        auto const before = std::pair(defaults.stored, files.nodes.size());
        EXPECT_EQ(run({ "import", "--all", "--yes", "changed.plist" }).status, row.status) << row.key << " " << (&row - rows);
        EXPECT_FALSE(defaults.stored.contains("Feed"));
        EXPECT_FALSE(files.exists(Url::fromPath("/data/.Items/sun.png")));
        if (row.status != 0) {
            EXPECT_EQ(std::pair(defaults.stored, files.nodes.size()), before) << row.key << " " << (&row - rows);
        }
    }
}

} // namespace
} // namespace zv
