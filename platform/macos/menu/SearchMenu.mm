#import "platform/macos/menu/SearchMenu.h"

#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/menu/MenuItems.h"

#include <algorithm>

namespace {

constexpr CGFloat fieldWidth = 260;
constexpr CGFloat fieldHeight = 22;
constexpr CGFloat sideMargin = 14; // to where the titles of items begin
constexpr CGFloat otherMargin = 4;

} // namespace

@implementation ZVSearchMenu

@synthesize item = _item;

- (instancetype)initWithMenu:(std::shared_ptr<zv::Menu> const&)menu search:(std::shared_ptr<zv::MenuSearch> const&)search
{
    if (!(self = [super init]))
        return nil;
    _searched = menu;
    _search = search;
    _filter.setMenu(menu.get());
    NSString* const title = zv::toNSString(zv::tr(zv::MenuSearch::title));
    _item = [[NSMenuItem alloc] initWithTitle:title action:nil keyEquivalent:@""];
    _item.submenu = [[NSMenu alloc] initWithTitle:title];
    _item.submenu.autoenablesItems = NO;
    [_item.submenu addItem:[self fieldItem:title]];
    _item.submenu.delegate = self;
    __unsafe_unretained ZVSearchMenu* const menuOfSearch = self;
    _search->onFound = _lifetime.guard([menuOfSearch](zv::MenuSearch::Found const& found) { [menuOfSearch show:found]; });
    return self;
}

- (void)dealloc
{
    _item.submenu.delegate = nil;
    _field.delegate = nil;
#if !__has_feature(objc_arc)
    [super dealloc];
#endif
}

- (NSMenuItem*)fieldItem:(NSString*)title
{
    _field = [[NSSearchField alloc] initWithFrame:NSMakeRect(sideMargin, otherMargin, fieldWidth, fieldHeight)];
    _field.placeholderString = title;
    _field.accessibilityLabel = title;
    _field.autoresizingMask = NSViewWidthSizable;
    _field.delegate = self;
    NSView* const row = [[NSView alloc] initWithFrame:NSMakeRect(0, 0, fieldWidth + 2 * sideMargin, fieldHeight + 2 * otherMargin)];
    row.autoresizingMask = NSViewWidthSizable;
    [row addSubview:_field];
    NSMenuItem* const item = [[NSMenuItem alloc] initWithTitle:title action:nil keyEquivalent:@""];
    item.view = row;
    return item;
}

/// The field has a window only after this, and then takes the keys.
- (void)menuWillOpen:(NSMenu*)menu
{
    [self performSelector:@selector(takeKeys) withObject:nil afterDelay:0 inModes:@[ NSEventTrackingRunLoopMode ]];
}

- (void)end
{
    _search = nullptr;
}

- (void)takeKeys
{
    [_field.window makeFirstResponder:_field];
}

- (void)controlTextDidChange:(NSNotification*)notification
{
    _filter.clear();
    _filter.append(zv::fromNSString(_field.stringValue));
    auto const visible = _filter.visibleEntries();
    if (!_search)
        return;
    _search->find(_filter.text(), static_cast<std::size_t>(std::count(visible.begin(), visible.end(), true)));
    if (_filter.isEmpty())
        [self showEntries: {}];
}

/// Replaces what is below the field.
- (void)show:(zv::MenuSearch::Found const&)found
{
    std::vector<zv::MenuEntry> entries;
    auto const visible = _filter.visibleEntries();
    for (std::size_t i = 0; i < visible.size() && !_filter.isEmpty(); ++i) {
        if (visible[i])
            entries.push_back(_searched->entries[i]);
    }
    entries.insert(entries.end(), found.entries.begin(), found.entries.end());
    if (entries.empty() && !_filter.isEmpty())
        entries.push_back(zv::MenuEntry::disabled(zv::tr(found.isFinal ? zv::MenuFilter::noMatches : zv::MenuSearch::searching)));
    [self showEntries:entries];
}

- (void)showEntries:(std::vector<zv::MenuEntry> const&)entries
{
    NSMenu* const menu = _item.submenu;
    while (menu.numberOfItems > 1)
        [menu removeItemAtIndex:1];
    for (auto const& entry : entries)
        [menu addItem:zv::menuItemOf(entry)];
}

@end
