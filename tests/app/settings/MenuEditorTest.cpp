#include "app/settings/MenuDrop.h"
#include "tests/app/settings/SettingsFixture.h"

namespace zv {
namespace {

using Ids = std::set<Uuid>;
using Position = MenuEditor::Position;

struct MenuEditorTest : SettingsFixture { };

TEST_F(MenuEditorTest, MovesItemsWhereTheyAreDropped)
{
    struct Row {
        char const* before;
        std::string ids;
        std::optional<char> parent;
        std::size_t index;
        std::string after; ///< empty: refused
        std::string why;
    };
    Row const rows[] = {
        { "a b c d", "d", {}, 0, "d a b c", "to the front" },
        { "a b c d", "a", {}, 4, "b c d a", "to the end" },
        { "a b c d", "a", {}, 2, "b a c d", "the index counts the list as it was" },
        { "a b c d", "ca", {}, 3, "b a c d", "several keep the order of the tree" },
        { "a b[x] c d", "acd", 'b', 1, "b[x a c d]", "three into a submenu" },
        { "a b[x y] c", "x", {}, 0, "x a b[y] c", "out of one" },
        { "a b[x y] c", "bx", {}, 0, "b[x y] a c", "what lies below another goes with it" },
        { "a b[x] c", "b", 'b', 0, "", "not into itself" },
        { "b[m[x]] c", "b", 'm', 0, "", "not into its own child" },
        { "a b c", "a", 'b', 0, "", "not into what holds no items" },
        { "a b c", "a", {}, 99, "b c a", "beyond the end is the end" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        setMenu(row.before);
        auto const before = menu();
        Ids ids;
        for (char const name : row.ids)
            ids.insert(id(name));
        bool const moved = editor->move(ids, { row.parent ? std::optional(id(*row.parent)) : std::nullopt, row.index });
        EXPECT_EQ(moved, !row.after.empty());
        EXPECT_EQ(menu(), row.after.empty() ? before : row.after);
    }
}

TEST_F(MenuEditorTest, MovesByKeyboardWithinTheSameParent)
{
    setMenu("a b[x y z] c");
    EXPECT_TRUE(editor->moveUp({ id('c') }));
    EXPECT_EQ(menu(), "a c b[x y z]");
    EXPECT_TRUE(editor->moveDown({ id('x') }));
    EXPECT_EQ(menu(), "a c b[y x z]");
    EXPECT_TRUE(editor->moveUp({ id('x'), id('z') }));
    EXPECT_EQ(menu(), "a c b[x z y]");
    EXPECT_FALSE(editor->moveUp({ id('a') }));
    EXPECT_FALSE(editor->moveDown({ id('b') }));
    EXPECT_FALSE(editor->moveUp({}));
}

TEST_F(MenuEditorTest, UndoesAndRedoesEveryOperationAsOneStep)
{
    files.addFolder("/home/me/Work");
    LibraryEntry entry;
    entry.title = "Sleep";
    entry.itemTemplate = MenuItem::ofKind(MenuItemKind::sleep);
    std::pair<char const*, std::function<void()>> const operations[] = {
        { "Add Sleep",
            [&] {
                editor->addEntry(entry, { id('b'), 1 });
            } },
        { "Add Submenu",
            [&] {
                editor->addSubmenu({ {}, 0 });
            } },
        { "Add Separator",
            [&] {
                editor->addSeparator({ {}, 1 });
            } },
        { "Add File",
            [&] {
                editor->addFiles({ Url::fromPath("/home/me/Work") }, { {}, 1 });
            } },
        { "Move",
            [&] {
                editor->move({ id('a') }, { id('b'), 0 });
            } },
        { "Move Up", [&] { editor->moveUp({ id('y') }); } },
        { "Delete",
            [&] {
                editor->remove({ id('a'), id('x') });
            } },
        { "Duplicate", [&] { editor->duplicate({ id('b') }); } },
        { "Change Title", [&] { editor->setTitle(id('x'), "New"); } },
        { "Choose Target", [&] { editor->setTarget(id('x'), Url::fromPath("/home/me/Work")); } },
        { "Change Depth", [&] { editor->setScanDepth(id('x'), 2); } },
        { "Hide", [&] { editor->setHidden(id('x'), true); } },
        { "Change Shortcut", [&] { editor->setKeyEquivalent(id('y'), KeyEquivalentSpec { KeyEquivalentSpec::Trigger::character("E") }); } },
        { "Restore Default Menu", [&] { editor->restoreDefaultMenu(); } },
    };
    for (auto const& [name, operation] : operations) {
        SCOPED_TRACE(name);
        setMenu("a b[x y] c");
        auto const before = store->items();
        operation();
        ASSERT_EQ(edits.size(), 1U);
        EXPECT_EQ(edits[0].name, name);
        auto const after = store->items();
        EXPECT_NE(after, before);
        editor->undo(edits[0]);
        EXPECT_EQ(store->items(), before);
        editor->redo(edits[0]);
        EXPECT_EQ(store->items(), after);
        EXPECT_EQ(edits.size(), 1U) << "undo and redo are no edits";
    }
}

TEST_F(MenuEditorTest, LeadsBackOverWhatWasChangedElsewhereToo)
{
    setMenu("a b c");
    editor->setTitle(id('b'), "Mine");
    store->replaceAll({ itemNamed('x'), itemNamed('y') });
    ASSERT_EQ(edits.size(), 2U);
    editor->remove({ id('y') });
    for (auto const* expected : { "x y", "a Mine c", "a b c" }) {
        editor->undo(edits.back());
        edits.pop_back();
        EXPECT_EQ(menu(), expected);
    }
}

TEST_F(MenuEditorTest, KeepsOnlyTheItemsThatAnEditChanges)
{
    setMenu("a b[x y] c d");
    editor->setTitle(id('y'), "New");
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0].index, 1U);
    EXPECT_EQ(edits[0].before.size(), 1U);
    EXPECT_EQ(edits[0].after.size(), 1U);
    EXPECT_FALSE(edits[0].selectionAfter) << "who edits an item may have gone on to another one";
}

TEST_F(MenuEditorTest, SelectsWhatStoodBehindTheRemovedItems)
{
    struct Row {
        std::string ids;
        std::string selected;
        std::string why;
    };
    Row const rows[] = {
        { "a", "b", "the next one" },
        { "ab", "c", "the next that stays" },
        { "c", "b", "the last one goes: the one before" },
        { "xy", "b", "an emptied submenu itself" },
        { "bx", "c", "what lies below another goes with it" },
        { "abc", "", "nothing is left" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        setMenu("a b[x y] c");
        Ids ids;
        for (char const name : row.ids)
            ids.insert(id(name));
        editor->remove(ids);
        EXPECT_EQ(edits.at(0).selectionAfter, row.selected.empty() ? Ids {} : Ids { id(row.selected[0]) });
    }
}

TEST_F(MenuEditorTest, ChangesNothingWhereNothingDiffers)
{
    setMenu("a b");
    editor->setTitle(id('a'), "a");
    editor->setHidden(id('a'), false);
    editor->remove({ id('z') });
    store->replaceAll(store->items()); // as when locations are refreshed
    EXPECT_TRUE(edits.empty());
    editor->setTitle(id('a'), "");
    EXPECT_EQ(menu(), "Sleep b") << "an empty title is none";
    EXPECT_FALSE(store->items()[0].title);
}

TEST_F(MenuEditorTest, AddsTheFilesThatAreThereAndNamesTheOthers)
{
    for (auto const* path : { "/f/1", "/f/2", "/f/4", "/f/5" })
        files.addFile(path);
    std::vector<Url> dropped;
    for (auto const* path : { "/f/1", "/f/2", "/f/3", "/f/4", "/f/5" })
        dropped.push_back(Url::fromPath(path));
    setMenu("a");
    EXPECT_EQ(editor->addFiles(dropped, { {}, 0 }), (std::vector { Url::fromPath("/f/3") }));
    EXPECT_EQ(menu(), "1 2 4 5 a");
    EXPECT_EQ(edits.size(), 1U);
    EXPECT_TRUE(store->items()[0].location->bookmark);
}

TEST_F(MenuEditorTest, CallsFilesByTheNamesThatTheSystemShows)
{
    for (auto const* path : { "/f/notes.txt", "/f/org.browser.desktop", "/f/org.mail.desktop" })
        files.addFile(path);
    files.localizedNames = { { "/f/org.browser.desktop", "Browser" }, { "/f/org.mail.desktop", "Mail" } };
    setMenu("");
    editor->addFiles({ Url::fromPath("/f/notes.txt"), Url::fromPath("/f/org.browser.desktop") }, {});
    EXPECT_EQ(menu(), "notes.txt Browser");
    EXPECT_FALSE(store->items()[0].title) << "a file may be renamed";

    auto const id = store->items()[1].id;
    editor->setTarget(id, Url::fromPath("/f/org.mail.desktop"));
    EXPECT_EQ(menu(), "notes.txt Mail");
    editor->setTitle(id, "Post");
    editor->setTarget(id, Url::fromPath("/f/org.browser.desktop"));
    EXPECT_EQ(menu(), "notes.txt Post") << "what the user wrote stays";
}

TEST_F(MenuEditorTest, TakesRecordsAsAMoveOrAsFreshCopies)
{
    setMenu("a b[x] c");
    auto const records = editor->records({ id('b'), id('x'), id('c') });
    ASSERT_EQ(records.size(), 2U) << "x goes with b";
    EXPECT_TRUE(editor->drop(records, { {}, 0 }, MenuEditor::Drop::move));
    EXPECT_EQ(menu(), "b[x] c a");

    EXPECT_TRUE(editor->drop(records, { {}, 0 }, MenuEditor::Drop::copy));
    EXPECT_EQ(menu(), "b[x] c b[x] c a");
    EXPECT_NE(store->items()[0].id, id('b'));
    EXPECT_NE(store->items()[0].children[0].id, id('x'));

    setMenu("a");
    EXPECT_TRUE(editor->drop(records, { {}, 9 }, MenuEditor::Drop::move)) << "from another menu";
    EXPECT_EQ(menu(), "a b[x] c");

    edits.clear();
    for (auto const* wrong : { "", "no json", "[]", "{\"id\":7}", "{\"version\":2}" })
        EXPECT_FALSE(editor->drop({ records[0], wrong }, { {}, 0 }, MenuEditor::Drop::copy)) << wrong;
    EXPECT_TRUE(edits.empty()) << "all or nothing";
}

TEST_F(MenuEditorTest, ADropTellsWhatItCouldNotTake)
{
    files.addFile("/f/1");
    setMenu("a");
    auto const records = editor->records({ id('a') });
    Url const there = Url::fromPath("/f/1");
    struct Row {
        MenuDrop drop;
        bool tookAny;
        std::string message;
        std::string menu;
        char const* why;
    };
    Row const rows[] = {
        { { records, { there } }, true, "", "a a", "records come before files" },
        { { {}, { there } }, true, "", "1 a a", "files where there are no records" },
        { { {}, { Url::fromPath("/f/2"), there } }, true, "One file could not be added.", "1 1 a a", "what is there is added" },
        { { {}, { Url::fromPath("/f/2"), Url::fromPath("/f/3") } }, false, "2 files could not be added.", "1 1 a a", "nothing is there" },
        { { { "no json" }, { there } }, false, "The items could not be added.", "1 1 a a", "a wrong record" },
        { {}, false, "", "1 1 a a", "nothing at all" },
    };
    for (auto const& row : rows) {
        auto const outcome = take(row.drop, *editor, { {}, 0 });
        EXPECT_EQ(outcome.tookAny, row.tookAny) << row.why;
        EXPECT_EQ(outcome.problem ? outcome.problem->message : "", row.message) << row.why;
        EXPECT_EQ(menu(), row.menu) << row.why;
    }
}

TEST_F(MenuEditorTest, PutsNewItemsBehindTheSelection)
{
    setMenu("a b[x y] c");
    EXPECT_EQ(editor->positionAfter({}), (Position { {}, 3 }));
    EXPECT_EQ(editor->positionAfter({ id('a') }), (Position { {}, 1 }));
    EXPECT_EQ(editor->positionAfter({ id('x') }), (Position { id('b'), 1 }));
    EXPECT_EQ(editor->positionAfter({ id('b') }), (Position { {}, 2 }));
    EXPECT_EQ(editor->positionAfter({ id('b') }, id('b')), (Position { id('b'), 0 })) << "an open submenu takes them in";
}

} // namespace
} // namespace zv
