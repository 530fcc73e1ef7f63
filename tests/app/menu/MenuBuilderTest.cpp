#include "platform/text/PropertyListFormat.h"
#include "tests/SourceTree.h"
#include "tests/app/menu/MenuBench.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace zv {
namespace {

using Lines = MenuBench::Lines;
using Kind = MenuItemKind;

MenuItem item(Kind::Case kind) { return MenuItem::ofKind(kind); }

MenuItem item(Kind::Case kind, std::string title)
{
    auto made = item(kind);
    made.title = std::move(title);
    return made;
}

MenuItem group(std::string title, std::vector<MenuItem> children, Kind::Case kind = Kind::submenu)
{
    auto made = item(kind, std::move(title));
    made.children = std::move(children);
    return made;
}

MenuItem hidden(MenuItem made)
{
    made.isHidden = true;
    return made;
}

MenuItem unknownKind(std::string_view text)
{
    MenuItem made;
    made.kind = Kind::makeUnknown(std::string(text));
    return made;
}

class MenuBuilderTest : public testing::Test, public MenuBench { };

TEST_F(MenuBuilderTest, EndsWithTheProgramsOwnEntries)
{
    auto const quitDeepInside = group("A", { group("B", { group("C", { item(Kind::quitZantheVell) }) }) });
    struct Row {
        std::vector<MenuItem> items;
        OptionKey option;
        Lines lines;
        std::string why;
    };
    Row const rows[] = {
        { {}, OptionKey::released, { "---", "Customize Zanthe Vell…" }, "an empty tree" },
        { {}, OptionKey::held, { "---", "Customize Zanthe Vell…", "Check for Updates…", "Quit Zanthe Vell" }, "Option adds two" },
        { { item(Kind::sleep) }, OptionKey::released, { "Sleep", "---", "Customize Zanthe Vell…" }, "after the user's items" },
        { { quitDeepInside }, OptionKey::held, { "A >", "---", "Customize Zanthe Vell…", "Check for Updates…" }, "the user has placed Quit" },
        { { hidden(item(Kind::quitZantheVell)) }, OptionKey::held, { "---", "Customize Zanthe Vell…", "Check for Updates…", "Quit Zanthe Vell" },
            "a hidden Quit is not there" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(linesOf(*build(row.items, row.option)), row.lines);
    }
}

TEST_F(MenuBuilderTest, TheProgramsOwnEntriesDoWhatTheySay)
{
    preferences.setShowIcons(true);
    auto const menu = build({}, OptionKey::held);
    auto const& customize = menu->entries[1];
    auto const& updates = menu->entries[2];
    auto const& quit = menu->entries[3];
    for (auto const* entry : { &customize, &updates, &quit })
        entry->target->invoke();
    EXPECT_EQ(commands.log, (Lines { "settings", "check for updates", "terminate" }));
    EXPECT_EQ(keyEquivalentText(customize), "⌘,");
    EXPECT_EQ(keyEquivalentText(updates), "");
    EXPECT_EQ(keyEquivalentText(quit), "⌘Q");
    EXPECT_EQ(iconOf(customize), "kind:CustomizeZantheVell");
    EXPECT_EQ(iconOf(updates) + iconOf(quit), "");
    EXPECT_EQ(quit.identifier, "") << "only the user's own Quit carries it";
}

TEST_F(MenuBuilderTest, UpdatesCanBeCheckedExactlyWhenTheUpdaterSaysSo)
{
    commands.canCheck = false;
    EXPECT_EQ(linesOf(*build({}, OptionKey::held))[2], "(Check for Updates…)");
}

TEST_F(MenuBuilderTest, LeavesHiddenItemsOutWithoutATrace)
{
    auto const menu = build({ item(Kind::sleep), hidden(item(Kind::separator)), hidden(item(Kind::restart)), item(Kind::shutdown) });
    EXPECT_EQ(linesOf(*menu), (Lines { "Sleep", "Shut Down…", "---", "Customize Zanthe Vell…" }));
}

TEST_F(MenuBuilderTest, MakesEachKindTheEntryThatStandsForIt)
{
    files.addFolder("/home/me");
    struct Row {
        MenuItem made;
        std::string line;
        std::string why;
    };
    Row const rows[] = {
        { item(Kind::separator), "---", "" },
        { item(Kind::lockScreen), "Lock Screen", "a command" },
        { item(Kind::recentApps), "Recent Applications >", "fills itself" },
        { item(Kind::systemPrefs), "System Settings >", "fills itself" },
        { item(Kind::simpleSystemPrefs), "System Settings…", "the plain command" },
        { item(Kind::location), "Location >", "fills itself" },
        { item(Kind::recentApps, "Mine"), "Mine >", "the user's title" },
        { item(Kind::sleep, ""), "Sleep", "an empty title is none" },
        { group("Mine", { item(Kind::sleep) }, Kind::recentApps), "Mine >", "children make a group of any kind" },
        { item(Kind::openWith), "(Open With…)", "retired" },
        { item(Kind::addToZantheVellItems), "(Add to Zanthe Vell Items)", "retired" },
        { item(Kind::menuCommand), "(Menu Command)", "retired" },
        { unknownKind("Teleport"), "(Teleport)", "of a newer version" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(std::string(row.made.kind.rawValue()) + ": " + row.why);
        EXPECT_EQ(linesOf(*build({ row.made })).front(), row.line);
    }
}

TEST_F(MenuBuilderTest, ACommandIsPerformedWithItsOwnItem)
{
    auto const entry = entryFor(item(Kind::sleep, "Good Night"));
    entry.target->invoke();
    EXPECT_EQ(commands.log, Lines { "perform Sleep" });
    EXPECT_EQ(entry.representedObject, entry.target) << "what keeps the closure alive";
}

TEST_F(MenuBuilderTest, ExplainsInATooltipWhyARetiredKindCannotAct)
{
    std::string const finderSelection
        = "Acts on the Finder selection. Zanthe delivered this through a contextual menu plug-in, which macOS no longer supports.";
    struct Row {
        MenuItem made;
        std::string toolTip;
    };
    Row const rows[] = {
        { item(Kind::sleep), "" },
        { item(Kind::dockPosRight), "" },
        { item(Kind::openWith), finderSelection },
        { item(Kind::previewImage), finderSelection },
        { item(Kind::addToZantheVellItems),
            "Acts on the Finder selection, so it is a macOS Service now instead of a menu item. Right-click a file or folder in the Finder and look "
            "under Services." },
        { item(Kind::menuCommand), "Sent a Carbon menu command to the front application. That mechanism was removed with Carbon." },
        { unknownKind("Beam Me Up"), "Unrecognized item kind “Beam Me Up”." },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.made.kind.rawValue());
        auto const entry = entryFor(row.made);
        EXPECT_EQ(entry.toolTip, row.toolTip);
        EXPECT_EQ(entry.target == nullptr, row.made.kind.isLegacy());
    }
}

TEST_F(MenuBuilderTest, AGroupIsPlainAndNeverEmpty)
{
    preferences.setShowIcons(true);
    auto mine = group("Mine", { item(Kind::sleep), hidden(item(Kind::restart)) });
    mine.keyEquivalent = KeyEquivalentSpec { KeyEquivalentSpec::Trigger::character("G") };
    auto const entry = entryFor(mine);
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "Sleep" });
    EXPECT_EQ(entry.submenu->title, "Mine");
    EXPECT_EQ(iconOf(entry) + entry.keyEquivalent, "") << "neither icon nor shortcut";
    EXPECT_EQ(entry.target, nullptr);

    EXPECT_EQ(linesOf(*entryFor(group("Empty", {})).submenu), Lines { "(No Items)" });
    EXPECT_EQ(linesOf(*entryFor(group("All hidden", { hidden(item(Kind::sleep)) })).submenu), Lines { "(No Items)" });
}

TEST_F(MenuBuilderTest, ADynamicKindGetsItsIconButNoShortcut)
{
    preferences.setShowIcons(true);
    auto made = item(Kind::mountedVolumes);
    made.keyEquivalent = KeyEquivalentSpec { KeyEquivalentSpec::Trigger::character("V") };
    auto const entry = entryFor(made);
    EXPECT_EQ(iconOf(entry), "kind:MountedVolumes");
    EXPECT_EQ(entry.keyEquivalent, "");
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "(Loading…)" }) << "until it opens";
}

TEST_F(MenuBuilderTest, TheDepthIsTheItemsOwnOrThePreferred)
{
    files.addFolder("/home/me");
    preferences.setMaximumScanDepth(7);
    auto const depthOf = [&](MenuItem const& made) {
        auto const delegate = std::static_pointer_cast<DynamicSubmenuDelegate>(entryFor(made).representedObject);
        return std::visit([](auto const& source) { return source.depth; }, delegate->source().value);
    };
    auto shallow = fileItem("/home/me");
    shallow.scanDepth = 0;
    auto shallowList = item(Kind::mountedVolumes);
    shallowList.scanDepth = 2;
    EXPECT_EQ(depthOf(fileItem("/home/me")), 7);
    EXPECT_EQ(depthOf(shallow), 0);
    EXPECT_EQ(depthOf(item(Kind::mountedVolumes)), 7);
    EXPECT_EQ(depthOf(shallowList), 2);
}

TEST_F(MenuBuilderTest, OptionTurnsAboutIntoSystemInformation)
{
    preferences.setShowIcons(true);
    workspace.applications.emplace("com.apple.SystemProfiler", Url::fromPath("/apps/profiler.desktop"));
    auto about = item(Kind::aboutThisMac, "About");
    about.keyEquivalent = KeyEquivalentSpec { KeyEquivalentSpec::Trigger::character("I") };
    EXPECT_EQ(linesOf(*build({ about })).front(), "About");

    auto const entry = entryFor(about, OptionKey::held);
    EXPECT_EQ(entry.title, "System Information");
    EXPECT_EQ(iconOf(entry), "file:/apps/profiler.desktop");
    EXPECT_EQ(keyEquivalentText(entry), "⌘I");
    entry.target->invoke();
    EXPECT_EQ(workspace.log, Lines { "open file:///apps/profiler.desktop" });
    EXPECT_TRUE(commands.log.empty());
}

TEST_F(MenuBuilderTest, SystemInformationWithoutItsApplicationDoesNothing)
{
    auto const entry = entryFor(item(Kind::aboutThisMac), OptionKey::held);
    entry.target->invoke();
    EXPECT_TRUE(entry.enabled);
    EXPECT_EQ(entry.image, nullptr);
    EXPECT_TRUE(workspace.log.empty());
}

TEST_F(MenuBuilderTest, AFileThatIsGoneSaysSoAndNothingElse)
{
    preferences.setShowIcons(true);
    auto gone = fileItem("/nowhere");
    gone.title = "Gone";
    gone.keyEquivalent = KeyEquivalentSpec { KeyEquivalentSpec::Trigger::character("G") };
    for (auto const& made : { gone, item(Kind::fsObject, "Gone") }) {
        auto const entry = entryFor(made);
        EXPECT_EQ(linesOf(*build({ made })).front(), "(Gone)");
        EXPECT_EQ(entry.toolTip, "This item points at a file that no longer exists. Choose a new target in Settings.");
        EXPECT_EQ(iconOf(entry) + entry.keyEquivalent, "");
        EXPECT_EQ(entry.target, nullptr);
    }
}

TEST_F(MenuBuilderTest, AFileOnAServerThatIsAwayCanBeChosen)
{
    auto away = fileItem("/Volumes/S/Notes");
    away.location->bookmark = fakes::bytesOf("bookmark:/Volumes/S/Notes");
    bookmarks.unmounted = { "bookmark:/Volumes/S/Notes" };
    auto const entry = entryFor(away);
    EXPECT_TRUE(entry.enabled);
    EXPECT_EQ(entry.toolTip, "");
    entry.target->invoke();
    EXPECT_EQ(commands.log, std::vector<std::string> { "perform " + std::string(away.kind.rawValue()) });
}

TEST_F(MenuBuilderTest, AFileOpensAndAFolderBecomesASubmenu)
{
    preferences.setShowIcons(true);
    files.addFile("/home/me/notes.txt");
    files.addPackage("/home/me/Tool.app");
    files.addFolder("/home/me/Papers");
    files.addLink("/home/me/Shortcut", "/home/me/Papers");
    struct Row {
        std::string path, line, why;
    };
    Row const rows[] = {
        { "/home/me/notes.txt", "Mine", "a file" },
        { "/home/me/Tool.app", "Mine", "a package is one thing" },
        { "/home/me/Papers", "Mine >", "a folder" },
        { "/home/me/Shortcut", "Mine >", "a link to a folder" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        auto made = fileItem(row.path);
        made.title = "Mine";
        made.keyEquivalent = KeyEquivalentSpec { .trigger = KeyEquivalentSpec::Trigger::named("F5"), .noCommand = true };
        auto const menu = build({ made });
        EXPECT_EQ(linesOf(*menu).front(), row.line);
        EXPECT_EQ(iconOf(menu->entries.front()), "file:" + row.path);
        EXPECT_EQ(keyEquivalentText(menu->entries.front()), "F5");
    }
    entryFor(fileItem("/home/me/notes.txt")).target->invoke();
    EXPECT_EQ(commands.log, Lines { "open file:///home/me/notes.txt" });
}

TEST_F(MenuBuilderTest, NothingIsAskedOfAFileOnARemoteFileSystem)
{
    reader->remote = { "/nas/Films", "/nas/film.mkv" }; // neither exists on the fake disk: asking would show them missing
    EXPECT_EQ(linesOf(*build({ fileItem("/nas/Films") })).front(), "File or Folder >");
    EXPECT_EQ(linesOf(*build({ fileItem("/nas/film.mkv") })).front(), "File or Folder");
}

TEST_F(MenuBuilderTest, IconsAreSetOnlyWhenPreferred)
{
    preferences.setShowIcons(false);
    files.addFile("/home/me/notes.txt");
    workspace.applications.emplace("com.apple.SystemProfiler", Url::fromPath("/apps/profiler.desktop"));
    auto const menu = build({ item(Kind::sleep), item(Kind::mountedVolumes), fileItem("/home/me/notes.txt"), item(Kind::aboutThisMac) }, OptionKey::held);
    for (auto const& entry : menu->entries)
        EXPECT_EQ(entry.image, nullptr) << entry.title;

    preferences.setShowIcons(true);
    icons.withoutIcon[Kind::sleep] = true;
    auto const afresh = build({ item(Kind::sleep), item(Kind::restart) });
    EXPECT_EQ(afresh->entries[0].image, nullptr) << "none comes back";
    EXPECT_EQ(iconOf(afresh->entries[1]), "kind:Restart");
}

TEST_F(MenuBuilderTest, APictureOfItsOwnStandsBeforeEveryKindOfEntry)
{
    files.addFile("/home/me/notes.txt");
    std::vector<MenuItem> pictured { item(Kind::sleep), item(Kind::submenu), item(Kind::mountedVolumes), item(Kind::quitZantheVell),
        fileItem("/home/me/notes.txt"), fileItem("/gone") };
    for (auto& each : pictured)
        setPicture(each, ItemPicture { ItemPicture::Kind::icon, "star" });
    for (bool const showsIcons : { true, false }) {
        preferences.setShowIcons(showsIcons);
        auto const menu = build(pictured);
        for (std::size_t i = 0; i < pictured.size(); ++i)
            EXPECT_EQ(iconOf(menu->entries[i]), showsIcons ? "picture:star" : "") << i;
    }
}

std::vector<std::byte> fileBytes(std::string const& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string const text { std::istreambuf_iterator<char>(file), {} };
    return fakes::bytesOf(text);
}

TEST_F(MenuBuilderTest, TheDockSubmenuShowsItsResourceWhateverTheItemHolds)
{
    preferences.setShowIcons(true);
    resources.files["DockMenu.plist"] = fileBytes(tests::inSourceTree("app/resources/DockMenu.plist"));
    auto const entry = entryFor(group("Dock", { item(Kind::sleep) }, Kind::dockMenu));
    EXPECT_EQ(linesOf(*entry.submenu),
        (Lines { "Dock Magnification", "Dock Hiding", "---", "Position Dock on Left", "Position Dock on Bottom", "Position Dock on Right", "---",
            "Dock Settings…" }));
    EXPECT_EQ(entry.title, "Dock");
    EXPECT_EQ(iconOf(entry), "kind:DockMenu");
}

TEST_F(MenuBuilderTest, ADockSubmenuWithoutAReadableResourceIsEmpty)
{
    EXPECT_EQ(linesOf(*entryFor(item(Kind::dockMenu)).submenu), Lines { "(No Items)" }) << "missing";
    MenuBench other;
    other.resources.files["DockMenu.plist"] = fakes::bytesOf("no property list");
    EXPECT_EQ(linesOf(*other.entryFor(item(Kind::dockMenu)).submenu), Lines { "(No Items)" }) << "damaged";
    MenuBench endless;
    endless.resources.files["DockMenu.plist"] = writePropertyList(toPropertyList(std::vector { item(Kind::dockMenu) }), PropertyListEncoding::xml).value();
    EXPECT_EQ(linesOf(*endless.entryFor(item(Kind::dockMenu)).submenu), Lines { "(No Items)" }) << "a Dock submenu in itself";
}

TEST_F(MenuBuilderTest, AnEntryOfAListBecomesWhatItCanBe)
{
    preferences.setShowIcons(true);
    auto const with = [](auto change) {
        auto entry = entryTitled("E");
        change(entry);
        return entry;
    };
    struct Row {
        DynamicEntry entry;
        std::int64_t depth;
        std::string line, icon, why;
    };
    Row const rows[] = {
        { separatorEntry(), 3, "---", "", "" },
        { with([](auto& e) { e.isSeparator = true, e.unavailabilityReason = "no"; }), 3, "---", "", "a separator before all" },
        { with([](auto& e) { e.unavailabilityReason = "no", e.isDirectory = true; }), 3, "(E)", "file:/list/E", "unavailable before a folder" },
        { with([](auto& e) { e.isDirectory = true; }), 1, "E >", "file:/list/E", "the last level that opens" },
        { with([](auto& e) { e.isDirectory = true; }), 0, "E", "file:/list/E", "below it a folder is plain" },
        { with([](auto& e) { e.isDirectory = true; }), -1, "E", "file:/list/E", "never below zero" },
        { with([](auto& e) { e.isDirectory = e.isPackage = true; }), 3, "E", "file:/list/E", "a package is one thing" },
        { with([](auto& e) { e.url.reset(); }), 3, "(E)", "", "nothing to open, no icon either" },
        { with([](auto& e) { e.isDirectory = true, e.url.reset(); }), 3, "(E)", "", "a folder that is nowhere" },
        { with([](auto& e) { e.fileURL.reset(); }), 3, "E", "", "opens, but has no file to show" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.line + ": " + row.why);
        Menu menu;
        menu.entries.push_back(builder.makeEntryItem(row.entry, row.depth));
        EXPECT_EQ(linesOf(menu).front(), row.line);
        EXPECT_EQ(iconOf(menu.entries.front()), row.icon);
    }
    auto const target = builder.makeEntryItem(entryTitled("E"), 0).target; // a menu that closes may keep no more of it
    target->invoke();
    EXPECT_EQ(commands.log, Lines { "open entry file:///list/E" });
}

TEST_F(MenuBuilderTest, DepthIsSpentOneLevelASubmenu)
{
    auto folder = entryTitled("E");
    folder.isDirectory = true;
    folder.fileURL = Url::fromPath("/elsewhere");
    auto const delegate = std::static_pointer_cast<DynamicSubmenuDelegate>(builder.makeEntryItem(folder, 4).representedObject);
    EXPECT_EQ(delegate->source(), DynamicMenuSource::folder(Url::fromPath("/list/E"), 3)) << "what is listed is `url`";
}

TEST_F(MenuBuilderTest, AnUnavailableEntryIsItalicWithItsReason)
{
    auto const entry = MenuBuilder::makeUnavailableItem("Pane", "“xfce4-tool” is not installed.");
    EXPECT_EQ(entry.attributedTitle, (AttributedTitle { .text = "Pane", .italic = true }));
    EXPECT_EQ(entry.title, "Pane");
    EXPECT_EQ(entry.toolTip, "“xfce4-tool” is not installed.");
    EXPECT_FALSE(entry.enabled);
    EXPECT_EQ(entry.target, nullptr);
}

TEST_F(MenuBuilderTest, TitlesFromOutsideStayOnOneLine) { EXPECT_EQ(entryFor(item(Kind::sleep, "Two\nlines")).title, "Two␊lines"); }

} // namespace
} // namespace zv
