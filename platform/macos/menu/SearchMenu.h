#pragma once

#import <Cocoa/Cocoa.h>

#include "app/menu/MenuSearch.h"
#include "app/menubar/MenuFilter.h"
#include "base/Lifetime.h"

#include <memory>
#include <vector>

NS_ASSUME_NONNULL_BEGIN

/// The item that searches a menu: its submenu has a field for the text, and below it the menu's own entries that match
/// and what the search finds in its submenus. Owned by the mirror of the menu.
@interface ZVSearchMenu : NSObject <NSMenuDelegate, NSSearchFieldDelegate> {
    std::shared_ptr<zv::Menu> _searched;
    std::shared_ptr<zv::MenuSearch> _search;
    zv::MenuFilter _filter;
    NSMenuItem* _item;
    NSSearchField* _field;
    zv::Lifetime _lifetime;
}
- (instancetype)initWithMenu:(std::shared_ptr<zv::Menu> const&)menu search:(std::shared_ptr<zv::MenuSearch> const&)search;
/// In no menu yet.
@property (nonatomic, readonly) NSMenuItem* item;
/// Stops looking, as the menu has closed; the items stay, one of which may have been chosen.
- (void)end;
@end

NS_ASSUME_NONNULL_END
