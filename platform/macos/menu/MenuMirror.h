#pragma once

#import <Cocoa/Cocoa.h>

#include "app/menu/Menu.h"
#include "base/Lifetime.h"
#include "platform/macos/cocoa/Factories.h"

/// One menu of ours as a menu of the system's. It asks ours to fill itself when it is about
/// to open, and follows what arrives while it is open. Who shows the menu keeps the mirror:
/// the menu holds its delegate weakly.
@interface ZVMenuMirror : NSObject <NSMenuDelegate> {
    std::shared_ptr<zv::Menu> _mirrored;
    NSMenu* _menu;
    zv::MenuTracking* _tracking;
    BOOL _isOpen;
    zv::Lifetime _lifetime;
}
/// `tracking` is told of a menu that stands for itself; null for a submenu.
- (instancetype)initWithMenu:(std::shared_ptr<zv::Menu> const&)menu tracking:(zv::MenuTracking*)tracking;
- (NSMenu*)menu;
@end
