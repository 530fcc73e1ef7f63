#pragma once

#import <Cocoa/Cocoa.h>

#include "app/settings/PictureChooser.h"
#include "base/Lifetime.h"
#import "platform/macos/settings/Controls.h"

#include <functional>
#include <string>
#include <vector>

NS_ASSUME_NONNULL_BEGIN

/// A sheet with the system's symbols, to search and to choose from.
@interface ZVPictureGrid : NSObject <NSCollectionViewDataSource, NSCollectionViewDelegate, NSSearchFieldDelegate> {
    zv::PictureChooser* _pictures;
    std::vector<std::string> _names;
    std::string _current;
    std::function<void(std::string const&)> _chosen;
    zv::ControlActions _actions;
    NSPanel* _sheet;
    NSSearchField* _search;
    NSCollectionView* _grid;
    NSTextField* _name;
    NSTextField* _empty;
    NSButton* _accept;
    zv::Observation _observation;
    zv::Lifetime _lifetime;
}
/// Shows `current` as chosen, if that is the name of a symbol.
- (instancetype)initWithPictures:(zv::PictureChooser&)pictures current:(std::string const&)current chosen:(std::function<void(std::string const&)>)chosen;
- (void)openOver:(NSWindow*)window;
@end

NS_ASSUME_NONNULL_END
