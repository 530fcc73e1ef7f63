#import "platform/macos/compose/MainMenu.h"

namespace zv {

namespace {

constexpr NSUInteger command = NSEventModifierFlagCommand;
constexpr NSUInteger commandOption = NSEventModifierFlagCommand | NSEventModifierFlagOption;
constexpr NSUInteger commandShift = NSEventModifierFlagCommand | NSEventModifierFlagShift;

struct Command {
    NSString* title; ///< nil for a separator
    SEL action;
    NSString* key;
    NSUInteger modifiers;
};

NSMenuItem* add(NSMenu* menu, Command const& described)
{
    NSMenuItem* const item = described.title ? [[NSMenuItem alloc] initWithTitle:described.title action:described.action keyEquivalent:described.key]
                                             : (NSMenuItem*)[NSMenuItem separatorItem];
    if (described.title)
        [item setKeyEquivalentModifierMask:static_cast<NSEventModifierFlags>(described.modifiers)];
    [menu addItem:item];
    return item;
}

NSMenu* addMenu(NSMenu* bar, NSString* title)
{
    NSMenu* const menu = [[NSMenu alloc] initWithTitle:title];
    NSMenuItem* const item = [[NSMenuItem alloc] initWithTitle:title action:nil keyEquivalent:@""];
    [item setSubmenu:menu];
    [bar addItem:item];
    return menu;
}

void fillProgramMenu(NSMenu* menu, id target, SEL openSettings)
{
    [add(menu, { @"Settings…", openSettings, @",", command }) setTarget:target];
    add(menu, {});
    NSMenu* const services = [[NSMenu alloc] initWithTitle:@"Services"];
    [add(menu, { @"Services", nil, @"", 0 }) setSubmenu:services];
    [NSApp setServicesMenu:services];
    add(menu, {});
    add(menu, { @"Hide Zanthe Vell", @selector(hide:), @"h", command });
    add(menu, { @"Hide Others", @selector(hideOtherApplications:), @"h", commandOption });
    add(menu, { @"Show All", @selector(unhideAllApplications:), @"", 0 });
    add(menu, {});
    add(menu, { @"Quit Zanthe Vell", @selector(terminate:), @"q", command });
}

void fillEditMenu(NSMenu* menu)
{
    add(menu, { @"Undo", NSSelectorFromString(@"undo:"), @"z", command });
    add(menu, { @"Redo", NSSelectorFromString(@"redo:"), @"z", commandShift });
    add(menu, {});
    add(menu, { @"Cut", @selector(cut:), @"x", command });
    add(menu, { @"Copy", @selector(copy:), @"c", command });
    add(menu, { @"Paste", @selector(paste:), @"v", command });
    add(menu, { @"Duplicate", NSSelectorFromString(@"duplicate:"), @"d", command });
    add(menu, { @"Delete", NSSelectorFromString(@"delete:"), @"", 0 });
    add(menu, { @"Select All", @selector(selectAll:), @"a", command });
}

void fillWindowMenu(NSMenu* menu)
{
    add(menu, { @"Close", @selector(performClose:), @"w", command });
    add(menu, { @"Minimize", @selector(performMiniaturize:), @"m", command });
    [NSApp setWindowsMenu:menu];
}

} // namespace

NSMenu* makeMainMenu(id target, SEL openSettings)
{
    NSMenu* const bar = [[NSMenu alloc] initWithTitle:@""];
    fillProgramMenu(addMenu(bar, @"Zanthe Vell"), target, openSettings);
    fillEditMenu(addMenu(bar, @"Edit"));
    fillWindowMenu(addMenu(bar, @"Window"));
    return bar;
}

} // namespace zv
