#pragma once

#import <Cocoa/Cocoa.h>

#include "app/menu/Menu.h"
#include "base/Lifetime.h"
#include "platform/macos/cocoa/Factories.h"

NS_ASSUME_NONNULL_BEGIN

@class ZVSearchMenu;

/// Mirrors a menu of ours in a menu of the system's: asks ours to fill itself when it is about
/// to open, and follows its changes while it is open. Owned by whoever shows the menu, which
/// holds its delegate weakly.
@interface ZVMenuMirror : NSObject <NSMenuDelegate> {
    std::shared_ptr<zv::Menu> _mirrored;
    NSMenu* _menu;
    zv::MenuTracking* _tracking;
    BOOL _isOpen;
    id _chosenByKey;
    ZVSearchMenu* _search;
    BOOL _ignoresOption;
    BOOL _showsOwnMenus;
    zv::Lifetime _lifetime;
}
/// `tracking` gets the closing time of a top-level menu; null for a submenu.
- (instancetype)initWithMenu:(std::shared_ptr<zv::Menu> const&)menu tracking:(zv::MenuTracking* _Nullable)tracking;
@property (nonatomic, readonly) NSMenu* menu;
/// The menu is opened by a shortcut, whose own Option does not count.
- (void)ignoreOption;
@end

NS_ASSUME_NONNULL_END
