/// The front end's own files at work, as far as another implementation of the system's
/// interfaces can carry them.
#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/compose/MainMenu.h"
#import "platform/macos/menu/MenuMirror.h"
#import "platform/macos/menu/SearchMenu.h"
#import "platform/macos/program/MessagePortServer.h"
#import "platform/macos/program/ServicesProvider.h"
#import "tests/macos/run/steps.h"

#include "app/menu/MenuKeyEquivalent.h"
#include "app/settings/ApplicationFolders.h"
#include "base/MainThread.h"
#include "platform/text/Text.h"
#include "platform/text/PropertyListFormat.h"

#include <fstream>
#include <iterator>
#include <set>

using namespace zv;

namespace {

class Filler : public MenuDelegate {
public:
    explicit Filler(std::function<std::vector<MenuEntry>()> entries)
        : m_entries(std::move(entries))
    {
    }
    void menuNeedsUpdate(Menu& menu) override
    {
        ++fillings;
        menu.entries = m_entries();
    }
    void menuDidClose(Menu&) override { ++closings; }
    std::shared_ptr<MenuActionTarget> targetForKey(Menu const& asked, KeyPress const& press) override
    {
        std::string const keys[] = { press.keyCode == 14 ? "e" : "" };
        auto const* entry = entryWithShortcut(asked, keys, press.modifiers);
        return entry ? entry->target : nullptr;
    }

    int fillings = 0;
    int closings = 0;

private:
    std::function<std::vector<MenuEntry>()> m_entries;
};

MenuEntry action(std::string title, std::function<void()> run)
{
    MenuEntry entry;
    entry.title = std::move(title);
    entry.target = std::make_shared<MenuActionTarget>(std::move(run));
    entry.representedObject = entry.target;
    return entry;
}

struct Menus {
    int performed = 0;
    std::shared_ptr<Filler> lazy = std::make_shared<Filler>([this] { return std::vector { action("Inner", [this] { performed += 10; }) }; });
    std::shared_ptr<Filler> main = std::make_shared<Filler>([this] { return entries(); });

    std::vector<MenuEntry> entries()
    {
        auto open = action("Open", [this] { ++performed; });
        open.keyEquivalent = "e";
        open.keyEquivalentModifierMask = ModifierMask::command | ModifierMask::option;
        open.identifier = "QuitZantheVell";
        open.toolTip = "Opens it";
        open.isMarked = true;
        auto titled = action("Plain", [] {});
        titled.attributedTitle = AttributedTitle { "Slanted", true, "⌘E", 200 };
        auto folder = MenuEntry();
        folder.title = "Folder";
        folder.submenu = std::make_shared<Menu>("Folder");
        folder.submenu->delegate = lazy;
        folder.submenu->entries = { MenuEntry::disabled("Loading…") };
        auto group = MenuEntry();
        group.title = "Group";
        group.submenu = std::make_shared<Menu>("Group");
        group.submenu->entries = { action("Member", [this] { performed += 100; }) };
        return { open, MenuEntry::separator(), titled, MenuEntry::disabled("Cannot"), folder, group };
    }
};

void choose(NSMenuItem* item) { [NSApp sendAction:[item action] to:[item target] from:item]; }

void menusAreMirrored()
{
    Menus menus;
    MenuTracking tracking;
    auto const menu = std::make_shared<Menu>("Main");
    menu->delegate = menus.main;
    ZVMenuMirror* const mirror = [[ZVMenuMirror alloc] initWithMenu:menu tracking:&tracking];
    NSMenu* const shown = [mirror menu];
    expect(menus.main->fillings == 0 && [shown numberOfItems] == 0, "a menu is not filled before it opens");

    [shown update]; // as the system does when it opens one
    expect([shown numberOfItems] == 6, "every entry is mirrored");
    expect(![shown autoenablesItems], "nothing is enabled by itself");
    NSMenuItem* const open = (NSMenuItem*)[shown itemAtIndex:0];
    expect([[open title] isEqual:@"Open"] && [[open identifier] isEqual:@"QuitZantheVell"] && [[open toolTip] isEqual:@"Opens it"], "texts are mirrored");
    expect([[open keyEquivalent] isEqual:@"e"] && [open keyEquivalentModifierMask] == 0x180000, "so is the shortcut, with its modifiers");
    expect([open state] == NSControlStateValueOn && [open isEnabled], "and the mark");
    expect([[shown itemAtIndex:1] isSeparatorItem], "a line is a line");
    expect(![[shown itemAtIndex:3] isEnabled] && ![[shown itemAtIndex:3] action], "what cannot act does not");

    choose(open);
    expect(menus.performed == 1, "an action fires");
    NSMenu* const folder = [[shown itemAtIndex:4] submenu];
    expect(folder && menus.lazy->fillings == 0 && [[[folder itemAtIndex:0] title] isEqual:@"Loading…"], "a submenu waits until it opens");
    [folder update];
    expect(menus.lazy->fillings == 1 && [folder numberOfItems] == 1, "then it fills itself");
    choose((NSMenuItem*)[folder itemAtIndex:0]);
    expect(menus.performed == 11, "and what is in it acts");
    NSMenu* const group = [[shown itemAtIndex:5] submenu];
    expect([group numberOfItems] == 1, "a group is there at once");
    choose((NSMenuItem*)[group itemAtIndex:0]);
    expect(menus.performed == 111, "and its members act");

    id target = nil;
    SEL action = nullptr;
    expect(![mirror menuHasKeyEquivalent:shown forEvent:pressOf(@"e", 0x180000) target:&target action:&action], "a closed menu takes no key press");
    [mirror menuWillOpen:shown];
    expect(tracking.isOpen, "the hot keys know that a menu is open");
    expect([mirror menuHasKeyEquivalent:shown forEvent:pressOf(@"e", 0x180000) target:&target action:&action], "an open one knows its shortcuts");
    [NSApp sendAction:action to:target from:shown];
    expect(menus.performed == 112, "which act");
    expect(![mirror menuHasKeyEquivalent:shown forEvent:pressOf(@"e", 0x40000) target:&target action:&action], "with just their modifiers");
    expect(menus.lazy->fillings == 1, "and fills nothing to find them");
    [shown setDelegate:nil]; // adding an item would ask for an update here
    menu->entries.resize(2);
    menu->didRefill();
    expect([shown numberOfItems] == 2, "what arrives late is shown");
    [mirror menuDidClose:shown];
    expect(!tracking.isOpen && tracking.lastClosed > 0 && menus.main->closings == 1, "closing is told");
    menu->entries.clear();
    menu->didRefill();
    expect([shown numberOfItems] == 2, "a closed menu follows nothing");
}

struct ToldSearch : MenuSearch {
    void find(std::string text, std::size_t matches) override { asked = text + " " + std::to_string(matches); }
    std::string asked;
};

void aSearchShowsWhatMatchesBelowItsField()
{
    Menus menus;
    auto const menu = std::make_shared<Menu>("Main");
    menu->entries = menus.entries();
    auto const told = std::make_shared<ToldSearch>();
    ZVSearchMenu* const search = [[ZVSearchMenu alloc] initWithMenu:menu search:told];
    NSMenu* const shown = [[search item] submenu];
    NSSearchField* const field = (NSSearchField*)[[[[shown itemAtIndex:0] view] subviews] objectAtIndex:0];
    auto const type = [&](NSString* text) {
        [field setStringValue:text];
        [search controlTextDidChange:nil];
    };
    type(@"op");
    expect(told->asked == "op 1", "what is typed is looked for");
    auto opera = action("Opera", [&menus] { menus.performed += 1000; });
    opera.way = std::make_shared<EntryWay const>(EntryWay { "Group", "in Group" });
    told->onFound({ { opera }, true });
    expect([shown numberOfItems] == 3 && [[[shown itemAtIndex:1] title] isEqual:@"Open"], "the menu's own entries come first");
    expect([[[shown itemAtIndex:2] title] isEqual:@"Opera   Group"], "then those below, with their way"); // an attributed title is kept as its text here
    choose((NSMenuItem*)[shown itemAtIndex:2]);
    expect(menus.performed == 1000, "which act");
    type(@"zz");
    told->onFound({ {}, true });
    expect([[[shown itemAtIndex:1] title] isEqual:@"No Matches"], "nothing is found");
    [search end];
    expect(told.use_count() == 1, "a closed menu searches no more");
}

} // namespace

@interface SettingsTaker : NSObject {
@public
    int taken;
}
- (void)openSettings:(id)sender;
@end
@implementation SettingsTaker
- (void)openSettings:(id)sender
{
    ++taken;
}
@end

/// Presses a button of the open alert.
@interface ButtonPresser : NSObject {
@public
    NSString* title;
    int presses;
}
- (void)press:(NSTimer*)timer;
@end
@implementation ButtonPresser
static NSButton* buttonIn(NSView* view, NSString* title)
{
    if ([view isKindOfClass:[NSButton class]] && [[(NSButton*)view title] isEqual:title])
        return (NSButton*)view;
    for (NSView* child in [view subviews]) {
        if (NSButton* const found = buttonIn(child, title))
            return found;
    }
    return nil;
}
- (void)press:(NSTimer*)timer
{
    NSButton* const button = buttonIn([[NSApp modalWindow] contentView], title);
    if (!button)
        return;
    [timer invalidate];
    ++presses;
    [button performClick:nil];
    // A modal session that is stopped by a timer ends with the next event.
    NSEvent* const event = [NSEvent otherEventWithType:NSApplicationDefined
                                              location:NSZeroPoint
                                         modifierFlags:0
                                             timestamp:0
                                          windowNumber:0
                                               context:nil
                                               subtype:0
                                                 data1:0
                                                 data2:0];
    [NSApp postEvent:event atStart:NO];
}
@end

namespace {

void theSettingsItemIsFound()
{
    SettingsTaker* const taker = [[SettingsTaker alloc] init];
    NSMenu* const bar = makeMainMenu(taker, @selector(openSettings:));
    NSMenuItem* found = nil;
    for (NSMenuItem* title in [bar itemArray]) {
        for (NSMenuItem* item in [[title submenu] itemArray]) {
            if ([[item keyEquivalent] isEqual:@","] && [item keyEquivalentModifierMask] == NSEventModifierFlagCommand)
                found = found ? found : item;
        }
    }
    expect(found != nil, "the main menu has a settings item under Command and the comma");
    choose(found);
    expect(taker->taken == 1, "which opens the settings");
}

void anAlertAnswers()
{
    ButtonPresser* const presser = [[ButtonPresser alloc] init];
    presser->title = @"Not Now";
    NSTimer* const timer = [NSTimer timerWithTimeInterval:0.2 target:presser selector:@selector(press:) userInfo:nil repeats:YES];
    [[NSRunLoop currentRunLoop] addTimer:timer forMode:NSModalPanelRunLoopMode];
    Alert alert;
    alert.message = "Copy it?";
    alert.informativeText = "It is on a disk image.";
    alert.buttons = { "Copy", "Not Now" };
    alert.escapeButton = 1;
    expect(makeAlerts()->run(alert) == 1 && presser->presses == 1, "an alert answers with the button that was pressed");
}

PropertyList sample()
{
    PropertyListDictionary inner;
    inner.set("text", "Grüße ⌘");
    inner.set("number", std::int64_t { 42 });
    inner.set("yes", true);
    inner.set("real", 2.5);
    return PropertyListArray { inner, PropertyListData { std::byte { 1 }, std::byte { 2 } } };
}

void propertyListsSurvive()
{
    for (auto const encoding : { PropertyListEncoding::xml, PropertyListEncoding::binary }) {
        auto const bytes = writePropertyList(sample(), encoding);
        expect(static_cast<bool>(bytes), "a property list is written");
        auto const read = readPropertyList(*bytes);
        expect(read && *read == sample(), "and read again the same");
    }
    std::string const garbage = "<plist><dict><key>";
    auto const* bytes = reinterpret_cast<std::byte const*>(garbage.data());
    expect(!readPropertyList({ bytes, garbage.size() }), "a broken one is refused");
}

void textsAreTakenApart()
{
    expect(graphemeCount("e\xCC\x81x") == 2, "a letter and its accent are one character");
    expect(trimmed(" \t Zanthe \n") == "Zanthe", "white space goes from both ends");
    expect(upperCased("grün") == "GRÜN", "upper case is not for ASCII alone");
    expect(withValidUtf8("a\xFFz") == "a\xEF\xBF\xBDz", "a wrong byte is replaced");
    expect(fromNSString(toNSString("a\xFFz")) == "a\xEF\xBF\xBDz", "and does not lose the text");
    expect(localizedStandardCompare("File 2", "file 10") < 0, "numbers compare by value");
    expect(compareSortKeys(sortKey("File 2"), sortKey("file 10")) < 0 && compareSortKeys(sortKey(""), sortKey("a")) < 0, "in keys as well");
}

void theProgramKnowsItself()
{
    auto const resources = makeResources();
    auto const* version = resources->information().find("CFBundleShortVersionString");
    expect(version && version->string(), "the version is read, whatever the system adds to the property list");
}

void workLeavesAndReturns()
{
    auto const tasks = makeTasks();
    auto const timers = makeTimers();
    bool isBack = false;
    bool wasElsewhere = false;
    int ticks = 0;
    tasks->inBackground(
        TaskPriority::user, [] { return !isMainThread(); },
        [&](bool elsewhere) {
            wasElsewhere = elsewhere;
            isBack = isMainThread();
        });
    auto timer = timers->every(std::chrono::milliseconds(20), [&] { ++ticks; });
    runLoopFor(1);
    expect(isBack && wasElsewhere, "work leaves the main thread, and its result returns to it");
    expect(ticks > 5, "a timer ticks");
    timer.reset();
    int const before = ticks;
    runLoopFor(0.2);
    expect(ticks == before, "until it is let go");
}

void waitingEndsWhenItIsOver()
{
    auto const tasks = makeTasks();
    bool isDone = false;
    tasks->runDetached([&] { return [&] { isDone = true; }; });
    turnRunLoopUntil([&] { return isDone; }, std::chrono::seconds(20));
    expect(isDone, "a command waits for what it started");
    turnRunLoopUntil([] { return false; }, std::chrono::milliseconds(50));
    expect(true, "and not for ever");
}

/// Counts how often the run loop lets a timer in while the work lasts.
int timersDuring(std::function<void()> const& work)
{
    auto const timers = makeTimers();
    int ticks = 0;
    auto const timer = timers->every(std::chrono::milliseconds(10), [&] { ++ticks; });
    work();
    return ticks;
}

void toolsAreWaitedFor()
{
    auto const tools = makeToolRunner();
    ToolResult result;
    auto const shell = [&](std::string script, ToolOutput output) {
        return timersDuring([&, script, output] { result = tools->run({ "/bin/sh", { "-c", script }, output }); });
    };
    expect(shell("sleep 0.3", ToolOutput::discarded) == 0, "nothing happens on the main thread while it waits for a tool");
    expect(result.end == ToolResult::End::exited && result.status == 0, "and the tool is through");
    shell("echo out; echo err >&2; exit 3", ToolOutput::captured);
    expect(result.status == 3 && result.output == "out\n" && result.errorOutput == "err\n", "what it says comes in two parts");
    shell("echo out; echo err >&2", ToolOutput::capturedWithErrors);
    expect(result.output == "out\nerr\n" && result.errorOutput.empty(), "or in one");
    expect(tools->run({ "/nowhere/tool", {} }).end == ToolResult::End::notStarted, "a tool that is not there does not start");
}

void terminalCellsAreCounted()
{
    auto const cells = makeCellTextMeasure();
    expect(cells->menuFontWidth("Open ⌥⌘E") == 8, "a character takes a cell of a terminal");
    expect(cells->menuFontWidth("e\xCC\x81日本") == 5, "an accent none, an ideograph two");
}

void commandsReachTheProgram()
{
    auto const post = makeMessagePort();
    expect(!post->isRunning() && !post->ask("anybody?"), "nobody answers while the program does not run");
    MessagePortServer port([](std::string const& request) { return "<" + request + ">"; });
    MessagePortServer second([](std::string const&) { return "second"; });
    expect(port.open() && port.open() && post->isRunning(), "it opens its door once");
    std::string const request = std::string("gr\xC3\xBCn \0\xFF", 8);
    expect(post->ask(request) == "<" + request + ">", "what is asked arrives, and so does the answer");
    expect(!second.open(), "there is one door only");
    port.close();
    expect(!post->isRunning() && second.open() && post->ask("") == "second", "which a copy can have once it is let go of");
}

void makeApplication(NSString* path, NSString* identifier)
{
    NSString* const contents = [path stringByAppendingPathComponent:@"Contents"];
    [[NSFileManager defaultManager] createDirectoryAtPath:contents withIntermediateDirectories:YES attributes:nil error:nullptr];
    NSDictionary* const information = [NSDictionary dictionaryWithObject:identifier forKey:@"CFBundleIdentifier"];
    [information writeToFile:[contents stringByAppendingPathComponent:@"Info.plist"] atomically:YES];
}

void applicationsAreFound()
{
    NSString* const folder = [NSTemporaryDirectory() stringByAppendingPathComponent:[[NSProcessInfo processInfo] globallyUniqueString]];
    makeApplication([folder stringByAppendingPathComponent:@"Über.app"], @"org.example.one");
    makeApplication([folder stringByAppendingPathComponent:@"Utilities/Tool.app"], @"org.example.two");
    makeApplication([folder stringByAppendingPathComponent:@"Utilities/Again.app"], @"org.example.one");
    makeApplication([folder stringByAppendingPathComponent:@"Utilities/Tool.app/Contents/Inner.app"], @"org.example.three");
    auto const found = applicationsIn({ fromNSURL([NSURL fileURLWithPath:folder]) }, *makeFolderReader(), bundleIdentifierOf);
    std::set<std::string> names;
    for (auto const& each : found)
        names.insert(each.name);
    expect(found.size() == 2 && names.count("Tool") == 1 && names.count("Über") + names.count("Again") == 1, "applications are found, each once, none within another");
    [[NSFileManager defaultManager] removeItemAtPath:folder error:nullptr];
}

NSString* textIn(NSView* view)
{
    if ([view isKindOfClass:[NSTextView class]])
        return [[(NSTextView*)view textStorage] string];
    for (NSView* child in [view subviews]) {
        if (NSString* const found = textIn(child))
            return found;
    }
    return nil;
}

void theNotesShow(char const* file)
{
    std::ifstream stream(file, std::ios::binary);
    std::string const contents { std::istreambuf_iterator<char>(stream), {} };
    auto const* begin = reinterpret_cast<std::byte const*>(contents.data());
    auto const windows = makeNotesWindows();
    auto const text = windows->read({ begin, begin + contents.size() });
    expect(text != nullptr, "the notes are read");
    expect(text->height(440) > 100, "and measured");
    auto const window = windows->make({ "Zanthe Vell Beta", "Notes", 480, 400, 320, 160, 20 }, text);
    window->bringToFront();
    runLoopFor(0.5);
    NSWindow* shown = nil;
    for (NSWindow* candidate in [NSApp windows]) {
        if ([[candidate title] isEqual:@"Zanthe Vell Beta"])
            shown = candidate;
    }
    expect(shown && [shown isVisible] && [[shown contentView] frame].size.width == 480, "their window stands there, as wide as it should be");
    expect([textIn([shown contentView]) length] > 100, "with the text in it");
}

void filesAreTaken(char const* file)
{
    std::vector<Url> taken;
    ZVServicesProvider* const provider = [[ZVServicesProvider alloc] initWithFunction:[&](std::vector<Url> files) -> Result<void> {
        taken = std::move(files);
        return taken.empty() ? Failure { "No files or folders were sent to Zanthe Vell." } : Result<void>();
    }];
    NSPasteboard* const pasteboard = [NSPasteboard pasteboardWithUniqueName];
    NSString* error = nil;
    [pasteboard declareTypes:[NSArray arrayWithObject:NSStringPboardType] owner:nil];
    [pasteboard setString:@"only text" forType:NSStringPboardType];
    [provider addToZantheVellItems:pasteboard userData:nil error:&error];
    expect(taken.empty() && [error isEqual:@"No files or folders were sent to Zanthe Vell."], "who sends no files is told so");
    error = nil;
    [pasteboard writeObjects:[NSArray arrayWithObject:[NSURL fileURLWithPath:[NSString stringWithUTF8String:file]]]];
    [provider addToZantheVellItems:pasteboard userData:nil error:&error];
    expect(taken.size() == 1 && taken.front().path() == file && !error, "a file that is sent is taken");
}

/// Posts another program's change as the system does; that implementation does not by itself.
void changeElsewhere(NSString* key, int value)
{
    NSUserDefaults* const defaults = [NSUserDefaults standardUserDefaults];
    [defaults willChangeValueForKey:key];
    [defaults setObject:[NSNumber numberWithInt:value] forKey:key];
    [defaults didChangeValueForKey:key];
}

void defaultsAreKept(bool isFirstRun)
{
    auto const defaults = makeUserDefaults();
    if (isFirstRun) {
        expect(defaults->setObject("Items", sample()).ok(), "a setting is stored");
        [[NSUserDefaults standardUserDefaults] synchronize]; // the Mac does so by itself
        return;
    }
    std::vector<std::string> differing;
    defaults->onExternalChange = [&](std::vector<std::string> const& keys) { differing = keys; };
    auto const stored = defaults->storedObject("Items");
    expect(stored && *stored == sample(), "the next run finds it again");
    PropertyListDictionary registered;
    registered.set("Depth", std::int64_t { 3 });
    defaults->registerDefaults(registered);
    expect(defaults->integerForKey("Depth") == 3 && !defaults->storedObject("Depth"), "what is registered is not stored");

    changeElsewhere(@"Depth", 3);
    expect(defaults->setObject("Depth", std::int64_t { 4 }).ok(), "a setting is changed here");
    runLoopFor(0.2);
    expect(differing.empty(), "which is nobody else's doing");
    changeElsewhere(@"Depth", 5);
    changeElsewhere(@"Unread", 1);
    runLoopFor(0.2);
    expect(differing == std::vector<std::string> { "Depth" } && defaults->integerForKey("Depth") == 5, "what another program changes is told");
    expect(defaults->removeObject("Depth").ok(), "a setting is let go of");
}

} // namespace

/// smoke first|second NOTES
int main(int count, char** arguments)
{
    @autoreleasepool {
        // These files rely on automatic reference counting: without it nothing is ever released.
        [NSAutoreleasePool enableRelease:NO];
        markMainThread();
        [NSApplication sharedApplication];
        if (count < 3)
            return 2;
        bool const isFirstRun = std::string(arguments[1]) == "first";
        defaultsAreKept(isFirstRun);
        if (isFirstRun)
            return 0;
        textsAreTakenApart();
        theProgramKnowsItself();
        propertyListsSurvive();
        menusAreMirrored();
        aSearchShowsWhatMatchesBelowItsField();
        theSettingsItemIsFound();
        filesAreTaken(arguments[2]);
        workLeavesAndReturns();
        waitingEndsWhenItIsOver();
        toolsAreWaitedFor();
        terminalCellsAreCounted();
        commandsReachTheProgram();
        applicationsAreFound();
        theNotesShow(arguments[2]);
        anAlertAnswers();
        std::puts("The smoke run is through.");
    }
    return 0;
}
