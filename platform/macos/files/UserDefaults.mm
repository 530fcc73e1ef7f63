#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"
#import "platform/macos/cocoa/KeyObserver.h"

#include "base/Lifetime.h"

namespace zv {

namespace {

/// The application's own domain of the standard user defaults. The system keeps the file; a
/// failed write is not reported. Every key asked for is watched from then on, as the system
/// tells of other programs' changes by key alone.
class StandardUserDefaults : public UserDefaults {
public:
    StandardUserDefaults()
        : m_defaults(NSUserDefaults.standardUserDefaults)
    {
        m_observer = [[ZVKeyObserver alloc] initWithObject:m_defaults changed:m_lifetime.guard([this] { tellWhatDiffers(); })];
    }
    ~StandardUserDefaults() override { [m_observer stop]; }

    std::optional<PropertyList> object(std::string_view key) const override
    {
        NSString* const name = toNSString(key);
        watch(name);
        return fromFoundation([m_defaults objectForKey:name]);
    }

    std::optional<PropertyList> storedObject(std::string_view key) const override
    {
        NSString* const name = toNSString(key);
        watch(name);
        return fromFoundation([domain() objectForKey:name]);
    }

    Result<void> setObject(std::string_view key, PropertyList value) override
    {
        id const object = toFoundation(value);
        if (!object)
            return Failure { "a text is not UTF-8" };
        if (isLocked(key))
            return Failure { "it is locked for all users of this machine" };
        NSString* const name = toNSString(key);
        [m_defaults setObject:object forKey:name];
        note(name);
        return {};
    }

    Result<void> removeObject(std::string_view key) override
    {
        if (isLocked(key))
            return Failure { "it is locked for all users of this machine" };
        NSString* const name = toNSString(key);
        [m_defaults removeObjectForKey:name];
        note(name);
        return {};
    }

    /// Of the file for all users, among which the system looks for values by itself; it names none of its own.
    std::optional<PropertyList> givenObject(std::string_view key) const override
    {
        NSString* const file = [NSString stringWithFormat:@"/Library/Preferences/%@.plist", NSBundle.mainBundle.bundleIdentifier];
        return fromFoundation([[NSDictionary dictionaryWithContentsOfFile:file] objectForKey:toNSString(key)]);
    }

    /// A managed preference, of a configuration profile.
    bool isLocked(std::string_view key) const override { return [m_defaults objectIsForcedForKey:toNSString(key)]; }

    void registerDefaults(PropertyListDictionary const& defaults) override
    {
        [m_defaults registerDefaults:toFoundation(defaults)];
        for (NSString* key in m_observer.keys)
            note(key);
    }

private:
    NSDictionary* domain() const
    {
        NSString* const identifier = NSBundle.mainBundle.bundleIdentifier;
        return identifier ? [m_defaults persistentDomainForName:identifier] : @ {};
    }

    void watch(NSString* key) const
    {
        bool const isPath = [key rangeOfString:@"."].location != NSNotFound; // observing would split it
        if (isPath || [m_observer.keys containsObject:key])
            return;
        note(key);
        [m_observer watch:key];
    }

    /// Notes the value last read or written here: a later difference came from elsewhere.
    void note(NSString* key) const { [m_known setObject:current(key) forKey:key]; }

    id current(NSString* key) const
    {
        id const value = [m_defaults objectForKey:key];
        return value ? value : [NSNull null];
    }

    void tellWhatDiffers()
    {
        std::vector<std::string> keys;
        for (NSString* key in m_observer.keys) {
            if ([current(key) isEqual:[m_known objectForKey:key]])
                continue;
            note(key);
            keys.push_back(fromNSString(key));
        }
        if (!keys.empty() && onExternalChange)
            onExternalChange(keys);
    }

    NSUserDefaults* m_defaults;
    ZVKeyObserver* m_observer = nil;
    NSMutableDictionary* m_known = [[NSMutableDictionary alloc] init];
    Lifetime m_lifetime;
};

} // namespace

std::unique_ptr<UserDefaults> makeUserDefaults() { return std::make_unique<StandardUserDefaults>(); }

} // namespace zv
