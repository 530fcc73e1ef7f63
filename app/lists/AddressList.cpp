#include "app/lists/AllLists.h"
#include "app/menu/DisplayText.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <set>

namespace zv {

namespace {

/// The default route's address first, then by interface, IPv4 before IPv6.
bool comesBefore(InterfaceAddress const& a, InterfaceAddress const& b)
{
    if (a.hasDefaultRoute != b.hasDefaultRoute)
        return a.hasDefaultRoute;
    int const order = localizedStandardCompare(a.interfaceName, b.interfaceName);
    return order != 0 ? order < 0 : a.family < b.family;
}

void keepThoseOfUse(std::vector<InterfaceAddress>& addresses)
{
    std::erase_if(addresses, [](auto const& address) { return address.isLoopback || address.address.empty(); });
    bool const hasBetter = std::any_of(addresses.begin(), addresses.end(), [](auto const& address) { return !address.isLinkLocal; });
    if (hasBetter)
        std::erase_if(addresses, [](auto const& address) { return address.isLinkLocal; });
}

std::string titleOf(InterfaceAddress const& address)
{
    bool const isNamed = !address.displayName.empty() && address.displayName != address.interfaceName;
    auto const place = isNamed ? address.displayName + " (" + address.interfaceName + ")" : address.interfaceName;
    return displayText(address.address + " — " + place);
}

DynamicEntry entryFor(InterfaceAddress const& address)
{
    DynamicEntry entry;
    entry.id = address.address;
    entry.title = titleOf(address);
    entry.sortName = entry.title;
    entry.url = Url::parse("data:," + Url::fromPath("/" + address.address).toString().substr(std::string_view("file:///").size()));
    entry.action = DynamicEntryAction::copyText;
    return entry;
}

std::vector<DynamicEntry> entriesFor(std::vector<InterfaceAddress> addresses)
{
    keepThoseOfUse(addresses);
    std::stable_sort(addresses.begin(), addresses.end(), comesBefore);
    std::vector<DynamicEntry> entries;
    std::set<std::string> seen;
    for (auto const& address : addresses) {
        if (seen.insert(address.address).second)
            entries.push_back(entryFor(address));
    }
    return entries;
}

/// This machine's addresses; choosing one copies it.
class AddressList : public DynamicList {
public:
    explicit AddressList(NetworkInterfaces& interfaces)
        : m_interfaces(interfaces)
    {
    }
    MenuItemKind::Case kind() const override { return MenuItemKind::ipAddress; }
    void fill(Done done) override
    {
        m_interfaces.list([done = std::move(done)](auto addresses) { done(entriesFor(std::move(addresses))); });
    }

private:
    NetworkInterfaces& m_interfaces;
};

} // namespace

void addAddressList(DynamicMenuProvider& lists, ListServices const& services) { lists.add(std::make_unique<AddressList>(services.seams.networkInterfaces)); }

} // namespace zv
