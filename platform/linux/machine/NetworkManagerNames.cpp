#include "platform/linux/machine/SystemNetworkInterfaces.h"

#include "platform/linux/bus/BusConnection.h"

#include <algorithm>
#include <vector>

namespace zv {

namespace {

// https://networkmanager.dev/docs/api/latest/spec.html
constexpr char const* service = "org.freedesktop.NetworkManager";
constexpr std::chrono::milliseconds patience { 1000 };
constexpr gsize mostConnections = 32;

/// Reads properties of NetworkManager's objects within one deadline.
class NetworkManager {
public:
    NetworkManager(BusConnection bus, Deadline deadline)
        : m_bus(std::move(bus))
        , m_deadline(deadline)
    {
    }
    [[nodiscard]] std::string text(std::string const& path, char const* interface, char const* name) const
    {
        auto const value = m_bus.property({ service, path.c_str(), interface }, name, "s", m_deadline);
        return value ? g_variant_get_string(value.get(), nullptr) : "";
    }
    [[nodiscard]] std::vector<std::string> paths(std::string const& path, char const* interface, char const* name) const
    {
        std::vector<std::string> found;
        auto const value = m_bus.property({ service, path.c_str(), interface }, name, "ao", m_deadline);
        auto const count = value ? std::min(g_variant_n_children(value.get()), mostConnections) : 0;
        for (gsize i = 0; i < count; ++i) {
            GVariantRef const child(g_variant_get_child_value(value.get(), i));
            found.emplace_back(g_variant_get_string(child.get(), nullptr));
        }
        return found;
    }

private:
    BusConnection m_bus;
    Deadline m_deadline;
};

void addConnection(ConnectionNames& names, NetworkManager const& manager, std::string const& path)
{
    static constexpr char const* active = "org.freedesktop.NetworkManager.Connection.Active";
    static constexpr char const* device = "org.freedesktop.NetworkManager.Device";
    auto const name = manager.text(path, active, "Id");
    if (name.empty())
        return;
    for (auto const& devicePath : manager.paths(path, active, "Devices")) {
        for (auto const* key : { "Interface", "IpInterface" }) {
            if (auto const interface = manager.text(devicePath, device, key); !interface.empty())
                names.emplace(interface, name);
        }
    }
}

} // namespace

ConnectionNames networkManagerNames(std::string const& busAddress)
{
    ConnectionNames names;
    Deadline const deadline(patience);
    auto bus = BusConnection::open(busAddress, deadline);
    if (!bus)
        return names;
    NetworkManager const manager(std::move(*bus), deadline);
    for (auto const& path : manager.paths("/org/freedesktop/NetworkManager", service, "ActiveConnections"))
        addConnection(names, manager, path);
    return names;
}

} // namespace zv
