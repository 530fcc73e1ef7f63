#import "platform/macos/menu/MenuMirror.h"

#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/desk/Images.h"
#import "platform/macos/menu/MenuItems.h"
#import "platform/macos/menu/SearchMenu.h"

#include "app/menu/EntryMenus.h"

using zv::MenuEntry;

/// Owned by an item: its action, and the mirror of its submenu.
@interface ZVMenuItemKeeper : NSObject {
    std::shared_ptr<zv::MenuActionTarget> _target;
    std::shared_ptr<void> _kept;
    ZVMenuMirror* _submenu;
}
- (instancetype)initWithEntry:(MenuEntry const&)entry submenu:(ZVMenuMirror*)submenu;
- (void)invoke:(id)sender;
@end

@implementation ZVMenuItemKeeper
- (instancetype)initWithEntry:(MenuEntry const&)entry submenu:(ZVMenuMirror*)submenu
{
    if (!(self = [super init]))
        return nil;
    _target = entry.target;
    _kept = entry.representedObject;
    _submenu = submenu;
    return self;
}
- (void)invoke:(id)sender
{
    auto const target = _target; // the action may destroy the menu, and this with it
    if (target)
        target->invoke();
}
@end

namespace {

/// The key by which an item shows its image on some systems; not every version of their
/// headers has it.
NSString* const imageVisibilityKey = @"preferredImageVisibility";
constexpr int imageIsVisible = 1;

NSFont* menuFont(bool italic)
{
    NSFont* const plain = [NSFont menuFontOfSize:0];
    if (!italic)
        return plain;
    static NSFont* const slanted = [NSFont fontWithDescriptor:[plain.fontDescriptor fontDescriptorWithSymbolicTraits:NSFontDescriptorTraitItalic]
                                                         size:plain.pointSize];
    return slanted ? slanted : plain;
}

NSParagraphStyle* styleWithTab(double place)
{
    NSTextTab* const tab = [[NSTextTab alloc] initWithTextAlignment:NSTextAlignmentRight location:place options:@ {}];
    NSMutableParagraphStyle* const style = [NSParagraphStyle.defaultParagraphStyle mutableCopy];
    style.tabStops = @[ tab ];
    return style;
}

constexpr zv::Rgb lightGround = 0xf0f0f0; // of menus, which let some of what is below them through
constexpr zv::Rgb darkGround = 0x2c2c2c;

NSColor* toNSColor(zv::Rgb color)
{
    auto const part = [color](int shift) { return ((color >> shift) & 0xff) / CGFloat(255); };
    return [NSColor colorWithSRGBRed:part(16) green:part(8) blue:part(0) alpha:1];
}

/// The colour in each appearance, as far as it can be read there.
NSColor* toNSColor(zv::TextColor const& color)
{
    return [NSColor colorWithName:nil
                  dynamicProvider:^NSColor*(NSAppearance* appearance) {
                      NSString* const found = [appearance bestMatchFromAppearancesWithNames:@[ NSAppearanceNameAqua, NSAppearanceNameDarkAqua ]];
                      bool const isDark = [found isEqualToString:NSAppearanceNameDarkAqua];
                      return toNSColor(zv::readableOn(isDark ? darkGround : lightGround, color));
                  }];
}

NSAttributedString* coloredTitle(std::string const& title, zv::TextColor const& color)
{
    NSDictionary* const attributes = @ { NSFontAttributeName : menuFont(false), NSForegroundColorAttributeName : toNSColor(color) };
    return [[NSAttributedString alloc] initWithString:zv::toNSString(title) attributes:attributes];
}

NSAttributedString* toAttributedString(zv::AttributedTitle const& title)
{
    NSMutableDictionary<NSAttributedStringKey, id>* const attributes = [NSMutableDictionary dictionaryWithObject:menuFont(title.italic)
                                                                                                          forKey:NSFontAttributeName];
    NSString* const text = zv::toNSString(title.text);
    if (title.hint.empty())
        return [[NSAttributedString alloc] initWithString:text attributes:attributes];
    [attributes setObject:styleWithTab(title.hintTab) forKey:NSParagraphStyleAttributeName];
    NSString* const whole = [text stringByAppendingFormat:@"\t%@", zv::toNSString(title.hint)];
    NSMutableAttributedString* const made = [[NSMutableAttributedString alloc] initWithString:whole attributes:attributes];
    if (title.hintIsItalic)
        [made addAttribute:NSFontAttributeName value:menuFont(true) range:NSMakeRange(text.length, whole.length - text.length)];
    return made;
}

/// The title with the way to the entry behind it, in grey.
NSAttributedString* titleWithWay(std::string const& title, zv::EntryWay const& way)
{
    NSString* const text = [zv::toNSString(title) stringByAppendingString:@"   "];
    NSMutableAttributedString* const made = [[NSMutableAttributedString alloc] initWithString:text attributes:@ { NSFontAttributeName : menuFont(false) }];
    NSDictionary* const faint = @ { NSFontAttributeName : menuFont(false), NSForegroundColorAttributeName : NSColor.secondaryLabelColor };
    [made appendAttributedString:[[NSAttributedString alloc] initWithString:zv::toNSString(way.text) attributes:faint]];
    return made;
}

void setImage(NSMenuItem* item, zv::ImageRef const& image)
{
    if (!image)
        return;
    item.image = zv::toNSImage(image);
    if ([item respondsToSelector:NSSelectorFromString(@"setPreferredImageVisibility:")])
        [item setValue:@(imageIsVisible) forKey:imageVisibilityKey];
}

void setTexts(NSMenuItem* item, MenuEntry const& entry)
{
    if (entry.way)
        item.attributedTitle = titleWithWay(entry.visibleTitle(), *entry.way);
    else if (entry.color)
        item.attributedTitle = coloredTitle(entry.title, *entry.color);
    else if (entry.attributedTitle)
        item.attributedTitle = toAttributedString(*entry.attributedTitle);
    if (!entry.toolTip.empty())
        item.toolTip = zv::toNSString(entry.toolTip);
    if (!entry.identifier.empty())
        item.identifier = zv::toNSString(entry.identifier);
}

} // namespace

NSMenuItem* zv::menuItemOf(MenuEntry const& entry)
{
    if (entry.type == MenuEntry::Type::separator)
        return (NSMenuItem*)[NSMenuItem separatorItem];
    NSMenuItem* const item = [[NSMenuItem alloc] initWithTitle:zv::toNSString(entry.title) action:nil keyEquivalent:zv::toNSString(entry.keyEquivalent)];
    item.keyEquivalentModifierMask = static_cast<NSEventModifierFlags>(entry.keyEquivalentModifierMask);
    setTexts(item, entry);
    setImage(item, entry.image);
    item.state = entry.isMarked ? NSControlStateValueOn : NSControlStateValueOff;

    ZVMenuMirror* const submenu = entry.submenu ? [[ZVMenuMirror alloc] initWithMenu:entry.submenu tracking:nullptr] : nil;
    ZVMenuItemKeeper* const keeper = [[ZVMenuItemKeeper alloc] initWithEntry:entry submenu:submenu];
    item.representedObject = keeper;
    if (submenu)
        item.submenu = submenu.menu;
    if (entry.target) {
        item.target = keeper;
        item.action = @selector(invoke:);
    }
    item.enabled = entry.enabled ? YES : NO;
    return item;
}

namespace {

/// The item that Option shows in the entry's place: it opens the entry's own menu. Nil for a submenu, which has that
/// above its entries, and where Option belongs to the shortcut.
NSMenuItem* ownMenuItem(MenuEntry const& entry)
{
    if (entry.submenu || !entry.subject.menus || zv::contains(entry.keyEquivalentModifierMask, zv::ModifierMask::option))
        return nil;
    auto own = entry.subject.menus->menuOf(entry);
    if (!own.submenu)
        return nil;
    own.image = entry.image;
    own.attributedTitle = entry.attributedTitle;
    own.keyEquivalent = entry.keyEquivalent;
    own.keyEquivalentModifierMask = entry.keyEquivalentModifierMask | zv::ModifierMask::option;
    NSMenuItem* const item = zv::menuItemOf(own);
    item.alternate = YES;
    return item;
}

constexpr NSUInteger shortcutModifiers = NSEventModifierFlagShift | NSEventModifierFlagControl | NSEventModifierFlagOption | NSEventModifierFlagCommand;

zv::KeyPress keyPressOf(NSEvent* event)
{
    auto const modifiers = static_cast<zv::ModifierMask>(event.modifierFlags & shortcutModifiers);
    return { event.keyCode, zv::fromNSString(event.charactersIgnoringModifiers), modifiers };
}

} // namespace

@implementation ZVMenuMirror

@synthesize menu = _menu;

- (instancetype)initWithMenu:(std::shared_ptr<zv::Menu> const&)menu tracking:(zv::MenuTracking*)tracking
{
    if (!(self = [super init]))
        return nil;
    _mirrored = menu;
    _tracking = tracking;
    _menu = [[NSMenu alloc] initWithTitle:zv::toNSString(menu->title)];
    _menu.autoenablesItems = NO; // every entry says itself whether it is enabled
    [self showEntries]; // of a menu that fills itself: its entries until then
    _menu.delegate = self;
    return self;
}

- (void)dealloc
{
    _menu.delegate = nil;
    if (_isOpen)
        [self endTracking]; // nobody would tell of the closing any more
    if (_mirrored)
        _mirrored->onRefilled = nullptr;
#if !__has_feature(objc_arc)
    [super dealloc];
#endif
}

- (void)showEntries
{
    [_menu removeAllItems];
    for (auto const& entry : _mirrored->entries) {
        [_menu addItem:zv::menuItemOf(entry)];
        if (NSMenuItem* const own = _showsOwnMenus ? ownMenuItem(entry) : nil)
            [_menu addItem:own];
    }
    [self addSearch];
}

/// Below the entries of a menu that is about to open, or is open.
- (void)addSearch
{
    auto const search = _tracking && !_mirrored->entries.empty() ? _mirrored->searchBelow(*_mirrored) : nullptr;
    _search = search ? [[ZVSearchMenu alloc] initWithMenu:_mirrored search:search] : nil;
    if (_search)
        [_menu addItem:_search.item];
}

- (void)ignoreOption
{
    _ignoresOption = YES;
}

- (void)menuNeedsUpdate:(NSMenu*)menu
{
    _showsOwnMenus = !_ignoresOption && (NSEvent.modifierFlags & NSEventModifierFlagOption) != 0;
    _mirrored->needsUpdate();
    [self showEntries];
    __unsafe_unretained ZVMenuMirror* const mirror = self;
    _mirrored->onRefilled = _lifetime.guard([mirror] { [mirror showEntries]; });
}

- (void)menuWillOpen:(NSMenu*)menu
{
    _isOpen = YES;
    if (_tracking)
        _tracking->isOpen = true;
}

- (void)menuDidClose:(NSMenu*)menu
{
    _isOpen = NO;
    auto const mirrored = _mirrored; // the call may release this
    mirrored->onRefilled = nullptr;
    [_search end];
    [self endTracking];
    mirrored->didClose();
}

- (void)endTracking
{
    if (!_tracking)
        return;
    _tracking->isOpen = false;
    _tracking->lastClosed = NSProcessInfo.processInfo.systemUptime;
}

/// Finds shortcuts while their menu is open, and answers for all menus below it. The system would
/// otherwise fill every menu that fills itself, at each key press, to look for them.
- (BOOL)menuHasKeyEquivalent:(NSMenu*)menu forEvent:(NSEvent*)event target:(id __autoreleasing*)target action:(SEL*)action
{
    MenuEntry chosen;
    chosen.target = _isOpen && !event.isARepeat ? _mirrored->targetForKey(keyPressOf(event)) : nullptr;
    if (!chosen.target)
        return NO;
    _chosenByKey = [[ZVMenuItemKeeper alloc] initWithEntry:chosen submenu:nil];
    *target = _chosenByKey;
    *action = @selector(invoke:);
    return YES;
}

@end
