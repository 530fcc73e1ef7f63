#pragma once

#import <Cocoa/Cocoa.h>

#include "app/settings/SettingsModels.h"
#include "base/Lifetime.h"
#import "platform/macos/settings/Controls.h"

#include <vector>

NS_ASSUME_NONNULL_BEGIN

/// An entry in the preview, with those in its submenu.
@interface ZVPreviewRow : NSObject {
@public
    zv::MenuItem const* item;
    NSArray<ZVPreviewRow*>* rows;
}
@end

/// A window with the menus to start from, each as the entries that it has.
@interface ZVGallery : NSObject <NSTableViewDataSource, NSTableViewDelegate, NSOutlineViewDataSource, NSOutlineViewDelegate> {
    zv::SettingsModels* _models;
    std::vector<zv::StartMenu> _menus;
    NSArray<ZVPreviewRow*>* _rows; ///< of the chosen menu
    zv::ControlActions _actions;
    NSWindow* _window;
    NSTableView* _list;
    NSOutlineView* _preview;
    NSTextField* _description;
    zv::Lifetime _lifetime;
}
- (instancetype)initWithModels:(zv::SettingsModels&)models;
- (void)open;
@end

NS_ASSUME_NONNULL_END
