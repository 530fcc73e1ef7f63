#pragma once

#include "platform/lists/NetworkInterfaces.h"
#include "platform/time/Tasks.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

struct ifaddrs;

namespace zv {

/// Connection names, as the user sees them, by interface.
using ConnectionNames = std::map<std::string, std::string>;

/// Addresses from the kernel, names from NetworkManager where it runs; found off the main thread,
/// as NetworkManager is asked over the bus.
class SystemNetworkInterfaces : public NetworkInterfaces {
public:
    /// `tasks` outlives this. `systemBus` is an address; empty where there is no bus.
    SystemNetworkInterfaces(Tasks& tasks, std::string systemBus);
    void list(std::function<void(std::vector<InterfaceAddress>)> done) override;

private:
    Tasks& m_tasks;
    std::string m_systemBus;
};

/// The interface of the best default route in the texts of /proc/net/route and
/// /proc/net/ipv6_route, the first text preferred. Empty when there is none.
[[nodiscard]] std::string defaultRouteInterface(std::string_view ipv4Routes, std::string_view ipv6Routes);
/// The numeric addresses of a kernel list, which may be null.
[[nodiscard]] std::vector<InterfaceAddress> addressesIn(ifaddrs const* list, std::string const& defaultInterface, ConnectionNames const& names);
/// Asks NetworkManager on that bus; answers within about a second, empty without a bus or
/// NetworkManager. Any thread but the main one.
[[nodiscard]] ConnectionNames networkManagerNames(std::string const& busAddress);

} // namespace zv
