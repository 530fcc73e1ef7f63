#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

namespace zv {

namespace {

class BundleResources : public Resources {
public:
    BundleResources()
    {
        NSDictionary* const information = NSBundle.mainBundle.infoDictionary;
        // Entries are converted singly: the system adds a URL, which no property list holds.
        for (NSString* key in [information.allKeys sortedArrayUsingSelector:@selector(compare:)]) {
            if (auto value = fromFoundation([information objectForKey:key]))
                m_information.set(fromNSString(key), std::move(*value));
        }
    }

    std::optional<std::vector<std::byte>> load(std::string_view name, std::string_view extension) const override
    {
        NSString* const path = [NSBundle.mainBundle pathForResource:toNSString(name) ofType:toNSString(extension)];
        NSData* const data = path ? [NSData dataWithContentsOfFile:path] : nil;
        return data ? std::optional(fromNSData(data)) : std::nullopt;
    }

    PropertyListDictionary const& information() const override { return m_information; }

private:
    PropertyListDictionary m_information;
};

} // namespace

std::unique_ptr<Resources> makeResources() { return std::make_unique<BundleResources>(); }

} // namespace zv
