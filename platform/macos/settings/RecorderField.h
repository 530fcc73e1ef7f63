#pragma once

#import <Cocoa/Cocoa.h>

#include "app/settings/SettingsModels.h"
#import "platform/macos/cocoa/Observers.h"
#import "platform/macos/settings/Controls.h"

#include <functional>
#include <optional>

NS_ASSUME_NONNULL_BEGIN

/// A button that catches the keys while a shortcut is being recorded.
@interface ZVRecorderButton : NSButton {
    BOOL _isRecording;
    std::function<void(BOOL)> _recordingChanged;
    std::function<void(NSEvent*)> _pressed;
}
- (void)setRecordingChanged:(std::function<void(BOOL)>)changed pressed:(std::function<void(NSEvent*)>)pressed;
@property (nonatomic, getter=isRecording) BOOL recording;
@end

namespace zv {

/// Shows an item's shortcut and records another.
class RecorderField {
public:
    explicit RecorderField(SettingsModels& models);

    [[nodiscard]] NSView* view() const { return m_view; }
    void setSpec(std::optional<KeyEquivalentSpec> const& spec);

    std::function<void(std::optional<KeyEquivalentSpec> const&)> onChange;

private:
    void recordingChanged(bool isRecording);
    void pressed(NSEvent* event);
    void take(std::optional<KeyEquivalentSpec> const& spec);
    void refresh();

    SettingsModels& m_models;
    ControlActions m_actions;
    ZVRecorderButton* m_button;
    NSButton* m_clear = nil;
    NSView* m_view = nil;
    std::optional<KeyEquivalentSpec> m_spec;
    Observers m_observers { [NSNotificationCenter defaultCenter] };
};

} // namespace zv

NS_ASSUME_NONNULL_END
