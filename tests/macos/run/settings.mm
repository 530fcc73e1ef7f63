/// The settings window at work over a machine in memory: its three tabs are driven as by hand, and pictured into
/// settings-TAB.png.
#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/desk/Images.h"
#import "platform/macos/settings/MenuEditorView.h"
#import "tests/macos/run/steps.h"

#include "app/settings/SettingsTexts.h"
#include "app/shell/ZantheVellApp.h"
#include "base/MainThread.h"
#include "tests/fakes/FakeSystem.h"

#include <fstream>
#include <iterator>

using namespace zv;

void compatLayOut(NSView* view);

namespace {

class Pictures : public IconSource {
public:
    ImageRef fileIcon(Url const& file) override { return std::make_shared<MacImage>([NSImage imageNamed:@"NSFolder"], file.path()); }
    ImageRef systemIcon(SystemIcon) override { return std::make_shared<MacImage>([NSImage imageNamed:@"NSComputer"], "computer"); }
    ImageRef namedIcon(std::string const& name, ImageRef const&) override { return std::make_shared<MacImage>([NSImage imageNamed:@"NSComputer"], name); }
    ImageRef imageIn(Url const& file, ImageRef const&) override { return fileIcon(file); }
};

/// The whole program but for its window, which is a real one.
struct Program {
    explicit Program(std::string const& resources)
    {
        for (auto const* name : { "Default Apple Menu.plist", "Library.plist", "DockMenu.plist", "Licences.txt" }) {
            std::ifstream stream(resources + "/" + name, std::ios::binary);
            std::string const text { std::istreambuf_iterator<char>(stream), {} };
            auto const* begin = reinterpret_cast<std::byte const*>(text.data());
            machine.resources.files[name] = { begin, begin + text.size() };
        }
        machine.resources.info.set("CFBundleShortVersionString", "0.9");
        machine.files.addFile("/home/ada/Letter.txt");
        front.keyboardLayout.set({ { { 14, "e" } } });
        front.installedApplications = { { "Chess", Url::fromPath("/Applications/Chess.app") } };
        auto const given = front.surface();
        app.emplace(machine.system(),
            Surface { .desk = given.desk,
                .looks = { .text = front.text, .icons = pictures },
                .presence = given.presence,
                .windows = given.windows,
                .home = given.home });
        (void)app->launch();
    }
    std::vector<MenuItem> const& items() { return app->delegate().store().items(); }

    fakes::FakeSystem machine;
    fakes::FakeSurface front;
    Pictures pictures;
    std::optional<ZantheVellApp> app;
};

template <class View> View* first(NSView* within, Class kind, NSString* title = nil)
{
    if ([within isKindOfClass:kind] && (!title || [[(NSButton*)within title] isEqual:title]))
        return (View*)within;
    for (NSView* child in [within subviews]) {
        if (View* const found = first<View>(child, kind, title))
            return found;
    }
    return nil;
}

void press(NSView* within, std::string const& title)
{
    NSButton* const button = first<NSButton>(within, [NSButton class], toNSString(title));
    expect(button != nil, ("there is a button " + title).c_str());
    [button performClick:nil];
    runLoopFor(0.1);
}

/// Shows a tab, and keeps its picture. Gives its content.
NSView* shown(NSWindow* window, NSInteger tab)
{
    NSTabView* const tabs = (NSTabView*)[window contentView];
    [tabs selectTabViewItemAtIndex:tab];
    runLoopFor(0.1);
    compatLayOut([[tabs selectedTabViewItem] view]);
    [window display];
    runLoopFor(0.3);
    (void)std::system(("import -silent -window root settings-" + std::to_string(tab) + ".png 2> /dev/null").c_str());
    return [[tabs selectedTabViewItem] view];
}

/// Counts what VoiceOver could not name.
int unnamed(NSView* view)
{
    bool const isPopUp = [view isKindOfClass:[NSPopUpButton class]];
    bool const isButton = [view isKindOfClass:[NSButton class]] && !isPopUp && [[(NSButton*)view title] length] == 0;
    bool const isField = [view isKindOfClass:[NSTextField class]] && [(NSTextField*)view isEditable];
    int count = (isPopUp || isButton || isField || [view isKindOfClass:[NSTableView class]]) && [[(id)view accessibilityLabel] length] == 0 ? 1 : 0;
    for (NSView* child in [view subviews])
        count += unnamed(child);
    return count;
}

} // namespace

/// What a drop tells of itself.
@interface Drop : NSObject {
@public
    id source;
    NSPasteboard* pasteboard;
}
@end
@implementation Drop
- (id)draggingSource
{
    return source;
}
- (NSDragOperation)draggingSourceOperationMask
{
    return NSDragOperationMove | NSDragOperationCopy;
}
- (NSPasteboard*)draggingPasteboard
{
    return pasteboard;
}
@end

namespace {

void generalSettingsAct(Program& program, NSView* page)
{
    auto& preferences = program.app->delegate().preferences();
    bool const before = preferences.showIcons();
    press(page, "Icons");
    expect(preferences.showIcons() != before, "a check box sets its preference");
    preferences.setShowIcons(before);
    runLoopFor(0.1);
    NSButton* const box = first<NSButton>(page, [NSButton class], @"Icons");
    expect(([box state] == NSControlStateValueOn) == before, "and follows it");
    NSView* const last = [[[first<NSView>(page, [NSGridView class]) subviews] lastObject] superview];
    expect(NSMaxY([last frame]) <= NSMaxY([[last superview] frame]), "all rows have room");
}

struct Editor {
    explicit Editor(Program& given, NSView* page)
        : program(given)
        , outline(first<ZVMenuOutlineView>(page, [ZVMenuOutlineView class]))
        , library(first<NSTableView>(page, [NSTableView class]))
        , editor((ZVMenuEditor*)[outline delegate])
    {
    }
    std::size_t rows() const { return static_cast<std::size_t>([outline numberOfRows]); }
    void select(NSInteger row) { [outline selectRowIndexes:[NSIndexSet indexSetWithIndex:row] byExtendingSelection:NO]; }
    bool drop(id writer, id source, NSInteger index)
    {
        Drop* const info = [[Drop alloc] init];
        info->source = source, info->pasteboard = [NSPasteboard pasteboardWithUniqueName];
        [info->pasteboard writeObjects:[NSArray arrayWithObject:writer]];
        bool const isWelcome = [editor outlineView:outline validateDrop:(id)info proposedItem:nil proposedChildIndex:index] != NSDragOperationNone;
        bool const isTaken = [editor outlineView:outline acceptDrop:(id)info item:nil childIndex:index] != NO;
        runLoopFor(0.1);
        return isWelcome && isTaken;
    }

    Program& program;
    ZVMenuOutlineView* outline;
    NSTableView* library;
    ZVMenuEditor* editor;
};

void theLibraryAdds(Editor& in)
{
    ZVLibrary* const library = (ZVLibrary*)[in.library delegate];
    NSSearchField* const search = first<NSSearchField>(library.view, [NSSearchField class]);
    NSInteger const all = [in.library numberOfRows];
    [search setStringValue:@"chess"];
    [library controlTextDidChange:[NSNotification notificationWithName:@"" object:search]];
    expect(all > 20 && [in.library numberOfRows] == 2, "the library is searched, applications included");
    auto const before = in.program.items().size();
    [library control:search textView:nil doCommandBySelector:@selector(moveDown:)];
    [in.library keyDown:pressOf(@"\r", 0)];
    runLoopFor(0.1);
    expect(in.program.items().size() == before + 1 && in.rows() == before + 1, "the arrow goes to what was found, and Return adds it");
    expect(in.drop([library tableView:in.library pasteboardWriterForRow:1], in.library, 0) && in.program.items().size() == before + 2,
        "a row of the library is dragged into the menu");
}

void itemsMoveAndComeBack(Editor& in)
{
    auto const order = in.program.items();
    expect(in.drop([in.editor outlineView:in.outline pasteboardWriterForItem:[in.outline itemAtRow:0]], in.outline, 2), "an item is dragged");
    expect(in.program.items()[1].id == order[0].id && in.program.items().size() == order.size(), "and moves");
    [in.editor.undoManager undo];
    runLoopFor(0.1);
    expect(in.program.items()[0].id == order[0].id, "which is undone");
    [in.editor.undoManager redo];
    runLoopFor(0.1);
    expect(in.program.items()[1].id == order[0].id, "and done again");
    expect(!in.drop([NSURL fileURLWithPath:@"/home/ada/Missing.txt"], nil, 0), "a file that is not there is refused");
    expect(in.drop([NSURL fileURLWithPath:@"/home/ada/Letter.txt"], nil, 0) && in.program.items()[0].location->path == "/home/ada/Letter.txt",
        "a file is dragged in");
}

void theInspectorEdits(Editor& in, NSView* page)
{
    in.select(0);
    ZVRecorderButton* const recorder = first<ZVRecorderButton>(page, [ZVRecorderButton class]);
    [recorder performClick:nil];
    expect([[recorder title] isEqual:toNSString(tr(settingsTexts::recording))] && recorder.isRecording, "a click records");
    expect([recorder performKeyEquivalent:pressOf(@"e", 0x180000)] && !recorder.isRecording, "a combination ends it");
    runLoopFor(0.1);
    expect(in.program.items()[0].keyEquivalent && [[recorder title] isEqual:@"⌥⌘E"], "and is the item's");
    press(page, tr(settingsTexts::clear));
    expect(!in.program.items()[0].keyEquivalent, "until it is cleared");
    [in.outline keyDown:pressOf([NSString stringWithFormat:@"%C", (unichar)NSDeleteCharacter], 0)];
    runLoopFor(0.1);
    expect(in.program.items()[0].location == std::nullopt || in.program.items()[0].location->path != "/home/ada/Letter.txt", "the Delete key removes");
    press(page, tr(settingsTexts::addSubmenu.title));
    expect(in.program.items()[1].kind == MenuItemKind::submenu || in.program.items()[0].kind == MenuItemKind::submenu, "a button adds a submenu");
}

void aMenuToStartFromIsTaken(Program& program, SettingsWindow& window)
{
    auto const menus = program.app->settingsModels().gallery().menus();
    window.openGallery();
    runLoopFor(0.3);
    NSWindow* gallery = nil;
    for (NSWindow* each in [NSApp windows])
        gallery = [[each title] isEqual:toNSString(tr(StartGallery::texts().window))] ? each : gallery;
    NSView* const page = [gallery contentView];
    compatLayOut(page);
    NSTableView* const list = first<NSTableView>(page, [NSTableView class]);
    expect([list numberOfRows] == 4 && menus.size() == 4, "four menus to start from");
    [list selectRowIndexes:[NSIndexSet indexSetWithIndex:3] byExtendingSelection:NO];
    runLoopFor(0.3);
    (void)std::system("import -silent -window root settings-gallery.png 2> /dev/null");
    expect(first<NSOutlineView>(page, [NSOutlineView class]).numberOfRows > static_cast<NSInteger>(menus[3].items.size()), "with what is in their submenus");
    press(page, tr(StartGallery::texts().take));
    expect(program.items().size() == menus[3].items.size() && ![gallery isVisible], "and one is taken");
}

} // namespace

/// settings RESOURCES
int main(int, char** arguments)
{
    @autoreleasepool {
        [NSAutoreleasePool enableRelease:NO]; // these files rely on automatic reference counting
        markMainThread();
        [NSApplication sharedApplication];
        Program program(arguments[1]);
        auto const window = makeSettingsWindow([&]() -> SettingsModels& { return program.app->settingsModels(); });
        window->openOrRaise();
        NSWindow* opened = nil;
        for (NSWindow* each in [NSApp windows])
            opened = [[each contentView] isKindOfClass:[NSTabView class]] ? each : opened;
        expect(opened && [opened isVisible] && [(NSTabView*)[opened contentView] numberOfTabViewItems] == 3, "the settings have three tabs");
        generalSettingsAct(program, shown(opened, 0));
        NSView* const page = shown(opened, 1);
        Editor editor(program, page);
        theLibraryAdds(editor);
        itemsMoveAndComeBack(editor);
        theInspectorEdits(editor, page);
        editor.select(1);
        shown(opened, 1);
        aMenuToStartFromIsTaken(program, *window);
        expect(unnamed(shown(opened, 0)) + unnamed(page) + unnamed(shown(opened, 2)) == 0, "every control has a name to be spoken");
        std::puts("The smoke run is through.");
    }
    return 0;
}
