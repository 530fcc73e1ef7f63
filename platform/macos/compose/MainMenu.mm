#import "platform/macos/compose/MainMenu.h"

#import "platform/macos/cocoa/Conversions.h"

#include "app/shell/MainMenuTexts.h"

namespace zv {

namespace {

constexpr NSUInteger command = NSEventModifierFlagCommand;
constexpr NSUInteger commandOption = NSEventModifierFlagCommand | NSEventModifierFlagOption;
constexpr NSUInteger commandShift = NSEventModifierFlagCommand | NSEventModifierFlagShift;

struct Command {
    Sentence title; ///< empty for a separator
    SEL action;
    NSString* key;
    NSUInteger modifiers;
};

NSMenuItem* add(NSMenu* menu, Command const& described)
{
    NSMenuItem* const item = !described.title.isEmpty()
        ? [[NSMenuItem alloc] initWithTitle:toNSString(tr(described.title)) action:described.action keyEquivalent:described.key]
        : (NSMenuItem*)[NSMenuItem separatorItem];
    if (!described.title.isEmpty())
        item.keyEquivalentModifierMask = static_cast<NSEventModifierFlags>(described.modifiers);
    [menu addItem:item];
    return item;
}

NSMenu* addMenu(NSMenu* bar, Sentence const& text)
{
    NSString* const title = toNSString(tr(text));
    NSMenu* const menu = [[NSMenu alloc] initWithTitle:title];
    NSMenuItem* const item = [[NSMenuItem alloc] initWithTitle:title action:nil keyEquivalent:@""];
    item.submenu = menu;
    [bar addItem:item];
    return menu;
}

void fillProgramMenu(NSMenu* menu, id target, SEL openSettings)
{
    add(menu, { mainMenuTexts::settings, openSettings, @",", command }).target = target;
    add(menu, {});
    NSMenu* const services = [[NSMenu alloc] initWithTitle:toNSString(tr(mainMenuTexts::services))];
    add(menu, { mainMenuTexts::services, nil, @"", 0 }).submenu = services;
    NSApp.servicesMenu = services;
    add(menu, {});
    add(menu, { mainMenuTexts::hide, @selector(hide:), @"h", command });
    add(menu, { mainMenuTexts::hideOthers, @selector(hideOtherApplications:), @"h", commandOption });
    add(menu, { mainMenuTexts::showAll, @selector(unhideAllApplications:), @"", 0 });
    add(menu, {});
    add(menu, { mainMenuTexts::quit, @selector(terminate:), @"q", command });
}

void fillEditMenu(NSMenu* menu)
{
    add(menu, { mainMenuTexts::undo, NSSelectorFromString(@"undo:"), @"z", command });
    add(menu, { mainMenuTexts::redo, NSSelectorFromString(@"redo:"), @"z", commandShift });
    add(menu, {});
    add(menu, { mainMenuTexts::cut, @selector(cut:), @"x", command });
    add(menu, { mainMenuTexts::copy, @selector(copy:), @"c", command });
    add(menu, { mainMenuTexts::paste, @selector(paste:), @"v", command });
    add(menu, { mainMenuTexts::duplicate, NSSelectorFromString(@"duplicate:"), @"d", command });
    add(menu, { mainMenuTexts::deleteSelected, NSSelectorFromString(@"delete:"), @"", 0 });
    add(menu, { mainMenuTexts::selectAll, @selector(selectAll:), @"a", command });
}

void fillWindowMenu(NSMenu* menu)
{
    add(menu, { mainMenuTexts::close, @selector(performClose:), @"w", command });
    add(menu, { mainMenuTexts::minimize, @selector(performMiniaturize:), @"m", command });
    NSApp.windowsMenu = menu;
}

} // namespace

NSMenu* makeMainMenu(id target, SEL openSettings)
{
    NSMenu* const bar = [[NSMenu alloc] initWithTitle:@""];
    fillProgramMenu(addMenu(bar, mainMenuTexts::program), target, openSettings);
    fillEditMenu(addMenu(bar, mainMenuTexts::edit));
    fillWindowMenu(addMenu(bar, mainMenuTexts::window));
    return bar;
}

} // namespace zv
