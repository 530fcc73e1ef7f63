#pragma once

#include <functional>
#include <string>
#include <vector>

namespace zv {

enum class AddressFamily { ipv4, ipv6 };

/// An address of an interface that is up.
struct InterfaceAddress {
    std::string interfaceName; ///< "en0"
    std::string displayName; ///< "Wi-Fi"; empty when nothing better than the interface is known
    std::string address; ///< numeric
    AddressFamily family = AddressFamily::ipv4;
    bool isLoopback = false;
    bool isLinkLocal = false;
    bool hasDefaultRoute = false; ///< the interface through which the machine reaches the rest
};

/// This machine's own addresses, found without the network. Main thread only, callbacks too.
class NetworkInterfaces {
public:
    virtual ~NetworkInterfaces() = default;
    /// Calls `done` once: before it returns, or later.
    virtual void list(std::function<void(std::vector<InterfaceAddress>)> done) = 0;
};

} // namespace zv
