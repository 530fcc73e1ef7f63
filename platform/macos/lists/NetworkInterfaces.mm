#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

#import <SystemConfiguration/SystemConfiguration.h>
#include <arpa/inet.h>
#include <ifaddrs.h>
#include <map>
#include <net/if.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace zv {

namespace {

/// The system settings' names of interfaces, such as "en0" to "Wi-Fi".
std::map<std::string, std::string> displayNames()
{
    std::map<std::string, std::string> names;
    NSArray* const interfaces = CFBridgingRelease(SCNetworkInterfaceCopyAll());
    for (id interface in interfaces) {
        auto const reference = (__bridge SCNetworkInterfaceRef)interface;
        NSString* const name = (__bridge NSString*)SCNetworkInterfaceGetBSDName(reference);
        NSString* const shown = (__bridge NSString*)SCNetworkInterfaceGetLocalizedDisplayName(reference);
        if (name && shown)
            names[fromNSString(name)] = fromNSString(shown);
    }
    return names;
}

/// The interface of the default route; empty while there is none. The key and its entry are
/// kSCEntNetIPv4 and kSCDynamicStorePropNetPrimaryInterface of SystemConfiguration/SCSchemaDefinitions.h.
std::string primaryInterface()
{
    SCDynamicStoreRef const store = SCDynamicStoreCreate(nullptr, CFSTR("Zanthe Vell"), nullptr, nullptr);
    if (!store)
        return {};
    NSDictionary* const state = CFBridgingRelease(SCDynamicStoreCopyValue(store, CFSTR("State:/Network/Global/IPv4")));
    CFRelease(store);
    NSString* const name = [state isKindOfClass:[NSDictionary class]] ? [state objectForKey:@"PrimaryInterface"] : nil;
    return fromNSString(name);
}

std::size_t lengthOf(sockaddr const& address)
{
    return address.sa_family == AF_INET ? sizeof(sockaddr_in) : sizeof(sockaddr_in6);
}

/// True for a link-local address: RFC 3927; RFC 4291, section 2.5.6.
bool isLinkLocal(sockaddr const& address)
{
    if (address.sa_family == AF_INET6)
        return IN6_IS_ADDR_LINKLOCAL(&reinterpret_cast<sockaddr_in6 const&>(address).sin6_addr);
    return (ntohl(reinterpret_cast<sockaddr_in const&>(address).sin_addr.s_addr) >> 16) == 0xA9FE; // 169.254
}

std::optional<InterfaceAddress> addressOf(ifaddrs const& entry)
{
    bool const isUp = (entry.ifa_flags & IFF_UP) != 0;
    if (!entry.ifa_addr || !isUp || (entry.ifa_addr->sa_family != AF_INET && entry.ifa_addr->sa_family != AF_INET6))
        return std::nullopt;
    char text[NI_MAXHOST] {};
    if (getnameinfo(entry.ifa_addr, static_cast<socklen_t>(lengthOf(*entry.ifa_addr)), text, sizeof text, nullptr, 0, NI_NUMERICHOST) != 0)
        return std::nullopt;
    InterfaceAddress address;
    address.interfaceName = entry.ifa_name;
    address.address = text;
    address.family = entry.ifa_addr->sa_family == AF_INET ? AddressFamily::ipv4 : AddressFamily::ipv6;
    address.isLoopback = (entry.ifa_flags & IFF_LOOPBACK) != 0;
    address.isLinkLocal = isLinkLocal(*entry.ifa_addr);
    return address;
}

class MacNetworkInterfaces : public NetworkInterfaces {
public:
    void list(std::function<void(std::vector<InterfaceAddress>)> done) override
    {
        std::vector<InterfaceAddress> addresses;
        auto const names = displayNames();
        auto const primary = primaryInterface();
        ifaddrs* first = nullptr;
        if (getifaddrs(&first) != 0)
            return done({});
        for (auto const* entry = first; entry; entry = entry->ifa_next) {
            auto address = addressOf(*entry);
            if (!address)
                continue;
            auto const name = names.find(address->interfaceName);
            address->displayName = name == names.end() ? std::string() : name->second;
            address->hasDefaultRoute = address->interfaceName == primary;
            addresses.push_back(std::move(*address));
        }
        freeifaddrs(first);
        done(std::move(addresses));
    }
};

} // namespace

std::unique_ptr<NetworkInterfaces> makeNetworkInterfaces()
{
    return std::make_unique<MacNetworkInterfaces>();
}

} // namespace zv
