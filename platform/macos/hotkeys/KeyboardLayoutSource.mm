#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

#include "base/Lifetime.h"

#import <Carbon/Carbon.h>

@interface ZVInputSourceObserver : NSObject {
    std::function<void()> _changed;
}
- (instancetype)initWithFunction:(std::function<void()>)changed;
- (void)stop;
@end

@implementation ZVInputSourceObserver
- (instancetype)initWithFunction:(std::function<void()>)changed
{
    if (!(self = [super init]))
        return nil;
    _changed = std::move(changed);
    [[NSDistributedNotificationCenter defaultCenter] addObserver:self
                                                        selector:@selector(inputSourceChanged:)
                                                            name:(__bridge NSString*)kTISNotifySelectedKeyboardInputSourceChanged
                                                          object:nil
                                              suspensionBehavior:NSNotificationSuspensionBehaviorDeliverImmediately];
    return self;
}
- (void)stop
{
    [[NSDistributedNotificationCenter defaultCenter] removeObserver:self];
}
- (void)inputSourceChanged:(NSNotification*)notification
{
    zv::performOnMain(_changed);
}
@end

namespace zv {

namespace {

static_assert(kUCKeyActionDisplay == 3);

/// The modifiers of an event record, without their lowest byte, as UCKeyTranslate() in
/// CarbonCore/UnicodeUtilities.h takes them. With Command a layout without Latin letters has them
/// (linearmouse/linearmouse#1287).
constexpr UInt32 noModifiers = 0;
constexpr UInt32 command = cmdKey >> 8;

/// Asks Text Input Sources, which answer on the main thread alone.
class InputSourceLayout : public KeyboardLayoutSource {
public:
    ~InputSourceLayout() override { [m_observer stop]; }

    std::vector<KeyTexts> layers() override
    {
        watch();
        m_last = read();
        return m_last;
    }

private:
    void watch()
    {
        if (m_observer)
            return;
        m_observer = [[ZVInputSourceObserver alloc] initWithFunction:m_lifetime.guard([this] { sourceChanged(); })];
    }

    void sourceChanged()
    {
        if (onChanged && read() != m_last)
            onChanged();
    }

    static std::vector<KeyTexts> read()
    {
        TISInputSourceRef const source = TISCopyCurrentKeyboardLayoutInputSource();
        if (!source)
            return {};
        auto const data = static_cast<CFDataRef>(TISGetInputSourceProperty(source, kTISPropertyUnicodeKeyLayoutData));
        std::vector<KeyTexts> layers;
        for (UInt32 const modifiers : { noModifiers, command }) {
            if (data)
                layers.push_back(textsOf(reinterpret_cast<UCKeyboardLayout const*>(CFDataGetBytePtr(data)), modifiers));
        }
        CFRelease(source);
        return layers;
    }

    static KeyTexts textsOf(UCKeyboardLayout const* layout, UInt32 modifiers)
    {
        KeyTexts texts;
        for (std::size_t code = 0; code < keyCodeCount; ++code)
            texts[code] = textOf(layout, static_cast<UInt16>(code), modifiers);
        return texts;
    }

    static std::string textOf(UCKeyboardLayout const* layout, UInt16 code, UInt32 modifiers)
    {
        UniChar units[4] {};
        UniCharCount count = 0;
        UInt32 deadKeyState = 0;
        OSStatus const status = UCKeyTranslate(layout, code, kUCKeyActionDisplay, modifiers, LMGetKbdType(), 0, &deadKeyState, 4, &count, units);
        if (status != noErr || count == 0)
            return {};
        return fromNSString([NSString stringWithCharacters:units length:count]);
    }

    ZVInputSourceObserver* m_observer = nil;
    std::vector<KeyTexts> m_last;
    Lifetime m_lifetime;
};

} // namespace

std::unique_ptr<KeyboardLayoutSource> makeKeyboardLayoutSource()
{
    return std::make_unique<InputSourceLayout>();
}

} // namespace zv
