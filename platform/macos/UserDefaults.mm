#import "platform/macos/Conversions.h"
#include "platform/macos/Factories.h"

namespace zv {

namespace {

/// The application's own domain of the standard user defaults. The system keeps the file;
/// a write that fails there is not told.
class StandardUserDefaults : public UserDefaults {
public:
    StandardUserDefaults()
        : m_defaults([NSUserDefaults standardUserDefaults])
    {
    }

    std::optional<PropertyList> object(std::string_view key) const override { return fromFoundation([m_defaults objectForKey:toNSString(key)]); }

    std::optional<PropertyList> storedObject(std::string_view key) const override { return fromFoundation([domain() objectForKey:toNSString(key)]); }

    MaybeFailure<> setObject(std::string_view key, PropertyList value) override
    {
        id const object = toFoundation(value);
        if (!object)
            return "a text is not UTF-8";
        [m_defaults setObject:object forKey:toNSString(key)];
        return std::nullopt;
    }

    MaybeFailure<> removeObject(std::string_view key) override
    {
        [m_defaults removeObjectForKey:toNSString(key)];
        return std::nullopt;
    }

    void registerDefaults(PropertyListDictionary const& defaults) override { [m_defaults registerDefaults:toFoundation(defaults)]; }

    std::vector<std::string> storedKeys() const override
    {
        std::vector<std::string> keys;
        for (NSString* key in domain())
            keys.push_back(fromNSString(key));
        return keys;
    }

private:
    NSDictionary* domain() const
    {
        NSString* const identifier = [[NSBundle mainBundle] bundleIdentifier];
        return identifier ? [m_defaults persistentDomainForName:identifier] : [NSDictionary dictionary];
    }

    NSUserDefaults* m_defaults;
};

} // namespace

std::unique_ptr<UserDefaults> makeUserDefaults()
{
    return std::make_unique<StandardUserDefaults>();
}

} // namespace zv
