#include "platform/linux/machine/SystemNetworkInterfaces.h"

#include "base/Split.h"
#include "platform/linux/posix/WholeFiles.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <ifaddrs.h>
#include <memory>
#include <net/if.h>
#include <net/route.h>
#include <netdb.h>
#include <netinet/in.h>
#include <optional>
#include <tuple>

namespace zv {

namespace {

std::vector<std::string_view> words(std::string_view line)
{
    std::vector<std::string_view> found;
    constexpr std::string_view blanks = " \t\r";
    for (auto start = line.find_first_not_of(blanks); start != std::string_view::npos; start = line.find_first_not_of(blanks, start)) {
        auto const end = std::min(line.find_first_of(blanks, start), line.size());
        found.push_back(line.substr(start, end - start));
        start = end;
    }
    return found;
}

std::optional<unsigned long> number(std::string_view text, int base)
{
    unsigned long value = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    return error == std::errc {} && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

/// Indices of the columns in a routing table.
struct RouteColumns {
    std::size_t interface, destination, prefix, flags, metric;
    int metricBase;
};

// Columns of fib_route_seq_show(), net/ipv4/fib_trie.c of Linux:
// Iface Destination Gateway Flags RefCnt Use Metric Mask …
constexpr RouteColumns ipv4Columns { 0, 1, 7, 3, 6, 10 };
// Columns of ipv6_route_native_seq_show(), net/ipv6/ip6_fib.c:
// destination prefix-length source prefix-length next-hop metric refcount use flags interface
constexpr RouteColumns ipv6Columns { 9, 0, 1, 8, 5, 16 };

bool isZero(std::string_view digits) { return digits.find_first_not_of('0') == std::string_view::npos; }

std::string bestDefault(std::string_view table, RouteColumns const& columns)
{
    std::optional<unsigned long> bestMetric;
    std::string best;
    for (auto const line : split(table, '\n')) {
        auto const fields = words(line);
        if (fields.size() < 8 || fields.size() <= columns.interface || !isZero(fields[columns.destination]) || !isZero(fields[columns.prefix]))
            continue;
        auto const flags = number(fields[columns.flags], 16);
        auto const metric = number(fields[columns.metric], columns.metricBase);
        bool const isUsable = flags && metric && (*flags & RTF_UP) != 0 && (*flags & RTF_REJECT) == 0;
        if (isUsable && (!bestMetric || *metric < *bestMetric)) {
            bestMetric = metric;
            best = fields[columns.interface];
        }
    }
    return best;
}

std::optional<std::string> numericAddress(sockaddr const& address)
{
    auto const length = address.sa_family == AF_INET ? sizeof(sockaddr_in) : sizeof(sockaddr_in6);
    std::array<char, NI_MAXHOST> text {};
    if (getnameinfo(&address, static_cast<socklen_t>(length), text.data(), text.size(), nullptr, 0, NI_NUMERICHOST) != 0)
        return std::nullopt;
    return text.data();
}

/// Whether the address is link-local: RFC 3927 and RFC 4291, section 2.5.6.
bool isLinkLocal(sockaddr const& address)
{
    if (address.sa_family == AF_INET)
        return (ntohl(reinterpret_cast<sockaddr_in const&>(address).sin_addr.s_addr) >> 16) == 0xA9FE;
    return IN6_IS_ADDR_LINKLOCAL(&reinterpret_cast<sockaddr_in6 const&>(address).sin6_addr) != 0;
}

bool isUsable(ifaddrs const& interface)
{
    if (!interface.ifa_addr || !interface.ifa_name || (interface.ifa_flags & IFF_UP) == 0)
        return false;
    return interface.ifa_addr->sa_family == AF_INET || interface.ifa_addr->sa_family == AF_INET6;
}

std::vector<InterfaceAddress> currentAddresses(std::string const& systemBus)
{
    ifaddrs* list = nullptr;
    if (getifaddrs(&list) != 0)
        return {};
    std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> const owned(list, freeifaddrs);
    auto const route = defaultRouteInterface(readTextFile("/proc/net/route").value_or(""), readTextFile("/proc/net/ipv6_route").value_or(""));
    return addressesIn(list, route, networkManagerNames(systemBus));
}

} // namespace

std::string defaultRouteInterface(std::string_view ipv4Routes, std::string_view ipv6Routes)
{
    auto const interface = bestDefault(ipv4Routes, ipv4Columns);
    return interface.empty() ? bestDefault(ipv6Routes, ipv6Columns) : interface;
}

std::vector<InterfaceAddress> addressesIn(ifaddrs const* list, std::string const& defaultInterface, ConnectionNames const& names)
{
    std::vector<InterfaceAddress> addresses;
    for (; list; list = list->ifa_next) {
        auto const text = isUsable(*list) ? numericAddress(*list->ifa_addr) : std::nullopt;
        if (!text)
            continue;
        std::string const interface = list->ifa_name;
        auto const name = names.find(interface);
        auto const family = list->ifa_addr->sa_family == AF_INET ? AddressFamily::ipv4 : AddressFamily::ipv6;
        addresses.push_back({ interface, name == names.end() ? "" : name->second, *text, family, (list->ifa_flags & IFF_LOOPBACK) != 0,
            isLinkLocal(*list->ifa_addr), interface == defaultInterface });
    }
    return addresses;
}

SystemNetworkInterfaces::SystemNetworkInterfaces(Tasks& tasks, std::string systemBus)
    : m_tasks(tasks)
    , m_systemBus(std::move(systemBus))
{
}

void SystemNetworkInterfaces::list(std::function<void(std::vector<InterfaceAddress>)> done)
{
    m_tasks.inBackground(
        TaskPriority::user, [bus = m_systemBus] { return currentAddresses(bus); }, std::move(done));
}

} // namespace zv
