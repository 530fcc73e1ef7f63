#pragma once

#import <Cocoa/Cocoa.h>

#include "app/settings/ItemInspector.h"
#include "app/settings/SettingsModels.h"
#import "platform/macos/settings/Controls.h"
#import "platform/macos/settings/PictureRow.h"
#import "platform/macos/settings/RecorderField.h"

#include <cstddef>
#include <functional>
#include <optional>

NS_ASSUME_NONNULL_BEGIN

namespace zv {

/// The fields of the selected item; each acts when it is left.
class InspectorView {
public:
    explicit InspectorView(SettingsModels& models);

    [[nodiscard]] NSView* view() const { return m_view; }
    /// `item` is null unless exactly one is selected.
    void show(MenuItem const* _Nullable item, std::size_t selected);
    /// Called to show another item of the menu.
    std::function<void(Uuid const&)> onShowItem;

private:
    void buildForm();
    void fill(InspectorFields const& fields);
    void fillDepths(InspectorFields const& fields);
    void commitTitle();
    /// Does nothing while no item is shown.
    template <class Edit> [[nodiscard]] std::function<void()> editing(Edit edit);

    SettingsModels& m_models;
    ControlActions m_actions;
    RecorderField m_recorder;
    PictureRow m_picture;
    std::optional<Uuid> m_id;
    std::string m_shownTitle;
    std::optional<Uuid> m_shortcutOwner;

    NSTextField* m_heading;
    NSTextField* m_title;
    NSTextField* m_target;
    NSButton* m_choose = nil;
    NSPopUpButton* m_depth;
    NSButton* m_listing = nil;
    NSButton* m_hidden;
    NSTextField* m_shortcutNote;
    NSButton* m_showOwner = nil;
    NSTextField* m_note;
    NSStackView* m_form = nil;
    NSView* m_titleRow = nil;
    NSView* m_targetRow = nil;
    NSView* m_pictureRow = nil;
    NSView* m_depthRow = nil;
    NSView* m_listingRow = nil;
    NSView* m_shortcutRow = nil;
    NSView* m_view = nil;
};

} // namespace zv

NS_ASSUME_NONNULL_END
