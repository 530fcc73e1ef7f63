#pragma once

#import <Cocoa/Cocoa.h>

#include "app/settings/ItemInspector.h"
#include "app/settings/SettingsModels.h"
#import "platform/macos/settings/Controls.h"
#import "platform/macos/settings/PictureGrid.h"

#include <string>

NS_ASSUME_NONNULL_BEGIN

namespace zv {

/// The inspector's row for an item's picture: what it is, and the ways to another one. An image can be dropped on it.
class PictureRow {
public:
    explicit PictureRow(SettingsModels& models);

    [[nodiscard]] NSView* view() const { return m_view; }
    void show(MenuItem const& item, InspectorFields const& fields);

private:
    void openGrid();

    SettingsModels& m_models;
    ControlActions m_actions;
    Uuid m_id;
    std::string m_icon; ///< the name of the symbol that the item has; empty for none
    NSImageView* m_well;
    NSButton* m_reset = nil;
    ZVPictureGrid* m_grid = nil;
    NSView* m_view = nil;
};

} // namespace zv

NS_ASSUME_NONNULL_END
