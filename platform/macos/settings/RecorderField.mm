#import "platform/macos/settings/RecorderField.h"

#import "platform/macos/cocoa/Conversions.h"

#include "app/settings/RecorderRules.h"
#include "app/settings/SettingsTexts.h"

@implementation ZVRecorderButton

@synthesize recording = _isRecording;

- (void)setRecordingChanged:(std::function<void(BOOL)>)changed pressed:(std::function<void(NSEvent*)>)pressed
{
    _recordingChanged = std::move(changed);
    _pressed = std::move(pressed);
}

- (void)setRecording:(BOOL)recording
{
    if (_isRecording == recording)
        return;
    _isRecording = recording;
    if (recording)
        [self.window makeFirstResponder:self];
    if (_recordingChanged)
        _recordingChanged(recording);
}

- (BOOL)acceptsFirstResponder
{
    return YES;
}

- (BOOL)resignFirstResponder
{
    self.recording = NO;
    return [super resignFirstResponder];
}

- (void)keyDown:(NSEvent*)event
{
    if (_isRecording)
        _pressed(event);
    else
        [super keyDown:event];
}

/// Gets combinations with Command, before any menu takes them.
- (BOOL)performKeyEquivalent:(NSEvent*)event
{
    if (!_isRecording)
        return [super performKeyEquivalent:event];
    _pressed(event);
    return YES;
}

@end

namespace zv {

namespace {

constexpr NSUInteger knownModifiers = NSEventModifierFlagShift | NSEventModifierFlagControl | NSEventModifierFlagOption | NSEventModifierFlagCommand;

KeyPress keyPressOf(NSEvent* event)
{
    return { event.keyCode, fromNSString([event charactersByApplyingModifiers:0]), static_cast<ModifierMask>(event.modifierFlags & knownModifiers) };
}

} // namespace

RecorderField::RecorderField(SettingsModels& models)
    : m_models(models)
    , m_button([[ZVRecorderButton alloc] initWithFrame:NSZeroRect])
{
    m_button.bezelStyle = NSBezelStyleRounded;
    m_button.alignment = NSTextAlignmentCenter;
    m_button.font = [NSFont monospacedSystemFontOfSize:NSFont.systemFontSize weight:NSFontWeightRegular];
    m_button.toolTip = toNSString(tr(settingsTexts::recorderHelp));
    m_button.accessibilityLabel = toNSString(tr(settingsTexts::recorder));
    m_button.accessibilityHelp = toNSString(tr(settingsTexts::recorderHelp));
    setMinimumWidth(m_button, minimumRecorderWidth);
    [m_button setRecordingChanged:[this](BOOL isRecording) { recordingChanged(isRecording != NO); } pressed:[this](NSEvent* event) { pressed(event); }];
    m_actions.attach(m_button, [this] { m_button.recording = !m_button.isRecording; });
    m_clear = pushButton(tr(settingsTexts::clear), {}, m_actions, [this] {
        m_button.recording = NO;
        take(std::nullopt);
    });
    m_clear.bordered = NO;
    m_clear.toolTip = m_clear.accessibilityLabel = toNSString(tr(settingsTexts::clearShortcut));
    m_view = stack(Direction::row, { m_button, m_clear });
    // Recording releases the global hotkeys: it ends when the window loses the keyboard.
    m_observers.observe(NSWindowDidResignKeyNotification, ^(NSNotification* told) {
        if (told.object == m_button.window)
            m_button.recording = NO;
    });
    refresh();
}

void RecorderField::setSpec(std::optional<KeyEquivalentSpec> const& spec)
{
    if (spec != m_spec)
        m_button.recording = NO; // the recording was for another item
    m_spec = spec;
    refresh();
}

void RecorderField::recordingChanged(bool isRecording)
{
    if (isRecording)
        m_models.beginRecording();
    else
        m_models.endRecording();
    refresh();
}

void RecorderField::pressed(NSEvent* event)
{
    auto const outcome = recorderOutcome(keyPressOf(event));
    if (outcome.kind == RecorderOutcome::Kind::ignored)
        return;
    m_button.recording = NO;
    if (outcome.kind == RecorderOutcome::Kind::captured)
        take(outcome.spec);
}

void RecorderField::take(std::optional<KeyEquivalentSpec> const& spec)
{
    m_spec = spec;
    refresh();
    if (onChange)
        onChange(spec);
}

void RecorderField::refresh()
{
    m_clear.enabled = m_spec ? YES : NO;
    if (m_button.isRecording)
        m_button.title = toNSString(tr(settingsTexts::recording));
    else
        m_button.title = toNSString(m_spec ? m_spec->description() : tr(settingsTexts::noShortcut));
    m_button.accessibilityValue = m_button.title; // the label takes the title's place
}

} // namespace zv
