#pragma once

#import <Cocoa/Cocoa.h>

#include "app/settings/SettingsModels.h"
#include "base/Lifetime.h"
#include "base/Observation.h"
#import "platform/macos/settings/Controls.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

NS_ASSUME_NONNULL_BEGIN

namespace zv {

struct LibraryRow {
    std::string heading; ///< of a group
    std::string entry; ///< its id; empty for a group
    std::optional<Uuid> item {}; ///< of the menu, which the search has found
};

} // namespace zv

/// The palette of things to add, in groups, with a field to search it. A double click adds;
/// rows are dragged into the menu.
@interface ZVLibrary : NSObject <NSTableViewDataSource, NSTableViewDelegate, NSSearchFieldDelegate> {
    zv::SettingsModels* _models;
    std::function<void(zv::LibraryEntry const&)> _add;
    std::vector<zv::LibraryRow> _rows;
    zv::ControlActions _actions;
    NSSearchField* _search;
    NSTableView* _table;
    NSButton* _showButton;
    std::function<void(zv::Uuid const&)> _show;
    NSView* _view;
    zv::Observation _observation;
    zv::Lifetime _lifetime;
}
- (instancetype)initWithModels:(zv::SettingsModels&)models add:(std::function<void(zv::LibraryEntry const&)>)add;
/// Called to show an item of the menu that the search has found.
- (void)setShow:(std::function<void(zv::Uuid const&)>)show;
@property (nonatomic, readonly) NSView* view;
@property (nonatomic, readonly) NSSearchField* search;
@end

NS_ASSUME_NONNULL_END
