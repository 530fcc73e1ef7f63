#pragma once

#import <Cocoa/Cocoa.h>

#include "app/settings/SettingsModels.h"
#include "base/Lifetime.h"
#include "base/Observation.h"
#import "platform/macos/settings/GalleryView.h"
#import "platform/macos/settings/InspectorView.h"
#import "platform/macos/settings/LibraryView.h"
#import "platform/macos/settings/MenuOutlineTree.h"

#include <memory>
#include <set>
#include <vector>

NS_ASSUME_NONNULL_BEGIN

@class ZVMenuEditor;

/// Hands the keys and commands of the outline to the editor.
@interface ZVMenuOutlineView : NSOutlineView {
    __unsafe_unretained ZVMenuEditor* _Nullable _editor;
}
@property (nonatomic, unsafe_unretained, nullable) ZVMenuEditor* editor;
@end

/// The Menu tab: the library, the outline, the inspector.
@interface ZVMenuEditor : NSObject <NSOutlineViewDataSource, NSOutlineViewDelegate, NSTextFieldDelegate> {
    zv::SettingsModels* _models;
    zv::MenuOutlineTree _tree;
    zv::ControlActions _actions;
    std::unique_ptr<zv::InspectorView> _inspector;
    std::set<zv::Uuid> _toSelect;
    ZVLibrary* _library;
    ZVMenuOutlineView* _outline;
    NSUndoManager* _undoManager;
    NSView* _view;
    NSSplitView* _menuSide;
    NSStackView* _buttons;
    NSButton* _remove;
    ZVGallery* _gallery;
    zv::Observation _observation;
    zv::Lifetime _lifetime;
}
- (instancetype)initWithModels:(zv::SettingsModels&)models;
@property (nonatomic, readonly) NSView* view;
@property (nonatomic, readonly) NSUndoManager* undoManager;
/// Selects the item, and brings it into sight.
- (void)showItem:(zv::Uuid const&)item;
/// Gives the keyboard to the library's search field.
- (void)focusSearch;

- (void)removeSelected;
- (void)duplicateSelected;
- (void)moveSelectedUp;
- (void)moveSelectedDown;
- (void)copySelected;
- (void)paste;
@end

NS_ASSUME_NONNULL_END
