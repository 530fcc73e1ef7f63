#include "app/lists/AllLists.h"
#include "app/lists/ListEntries.h"
#include "app/menu/DisplayText.h"
#include "app/menu/MenuIcon.h"
#include "base/Translation.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <string_view>

namespace zv {

namespace {

enum class ServerRoot { host, share };

struct Protocol {
    std::string_view scheme;
    ServerRoot root;
};

constexpr std::array protocols {
    Protocol { "smb", ServerRoot::share },
    Protocol { "cifs", ServerRoot::share },
    Protocol { "afp", ServerRoot::share },
    Protocol { "nfs", ServerRoot::share },
    Protocol { "sftp", ServerRoot::host },
    Protocol { "ssh", ServerRoot::host },
    Protocol { "fish", ServerRoot::host },
    Protocol { "ftp", ServerRoot::host },
    Protocol { "ftps", ServerRoot::host },
    Protocol { "dav", ServerRoot::host },
    Protocol { "davs", ServerRoot::host },
    Protocol { "vnc", ServerRoot::host },
};

std::string decoded(std::string_view escaped)
{
    auto const url = Url::parse("file:///" + std::string(escaped));
    auto const path = url ? url->path() : std::string();
    return displayText(path.empty() ? path : path.substr(1));
}

/// A server's address to open, and its title.
struct Server {
    Url url;
    std::string title;
};

/// The user without the password, which has no place in a menu.
std::string publicUser(std::string_view authority)
{
    auto const at = authority.rfind('@');
    if (at == std::string_view::npos)
        return {};
    return std::string(authority.substr(0, at).substr(0, authority.find(':'))) + "@";
}

std::string_view hostAndPort(std::string_view authority)
{
    auto const at = authority.rfind('@');
    return at == std::string_view::npos ? authority : authority.substr(at + 1);
}

std::string_view hostOf(std::string_view hostAndPort)
{
    if (hostAndPort.starts_with('['))
        return hostAndPort.substr(0, hostAndPort.find(']') + 1);
    return hostAndPort.substr(0, hostAndPort.find(':'));
}

std::optional<Server> serverAt(Url const& url)
{
    auto const scheme = url.scheme();
    auto const* protocol = std::find_if(protocols.begin(), protocols.end(), [&](auto const& known) { return known.scheme == scheme; });
    auto const rest = std::string_view(url.toString()).substr(scheme.size());
    if (protocol == protocols.end() || !rest.starts_with("://"))
        return std::nullopt;

    auto const authorityAndPath = rest.substr(3);
    auto const authority = authorityAndPath.substr(0, authorityAndPath.find('/'));
    auto const place = lowerCased(hostAndPort(authority));
    if (hostOf(place).empty())
        return std::nullopt;

    auto const path = authorityAndPath.substr(std::min(authority.size() + 1, authorityAndPath.size()));
    auto const share = protocol->root == ServerRoot::share ? path.substr(0, path.find('/')) : std::string_view();
    auto const root = Url::parse(scheme + "://" + publicUser(authority) + place + "/" + std::string(share));
    if (!root)
        return std::nullopt;
    auto const host = decoded(hostOf(place));
    return Server { *root, share.empty() ? host : decoded(share) + " — " + host };
}

DynamicEntry entryFor(Server const& server)
{
    DynamicEntry entry;
    entry.id = server.url.toString();
    entry.title = server.title;
    entry.sortName = entry.title;
    entry.url = server.url;
    entry.fileURL = server.url;
    return entry;
}

/// Entries, newest first.
std::vector<DynamicEntry> entriesFor(RecentServers::List const& servers)
{
    if (!servers) {
        auto const title = MenuItemKind(MenuItemKind::recentServers).defaultTitle();
        return { unavailableEntry(title, tr("The list of recent servers cannot be read.")) };
    }
    auto newestFirst = *servers;
    std::stable_sort(newestFirst.begin(), newestFirst.end(), [](auto const& a, auto const& b) { return a.lastUsed > b.lastUsed; });

    std::vector<DynamicEntry> entries;
    std::set<Url> seen;
    for (auto const& recent : newestFirst) {
        if (auto const server = serverAt(recent.url); server && seen.insert(server->url).second)
            entries.push_back(entryFor(*server));
    }
    return entries;
}

class ServerList : public DynamicList {
public:
    explicit ServerList(ListServices const& services)
        : m_servers(services.seams.recentServers)
        , m_preferences(services.preferences)
        , m_kept(services.kept)
    {
    }
    MenuItemKind::Case kind() const override { return MenuItemKind::recentServers; }
    ImageRef icon(MenuIcon& icons) const override { return icons.networkIcon(); }
    void fill(Done done) override
    {
        m_servers.list([limit = m_preferences.recentItemsLimit(), kept = keptEntries(), done = std::move(done)](auto const& servers) {
            done(keptFirst(MenuItemKind::recentServers, kept, entriesFor(servers), std::max(limit, servers ? 0 : std::int64_t { 1 })));
        });
    }

private:
    [[nodiscard]] std::vector<DynamicEntry> keptEntries() const
    {
        std::vector<DynamicEntry> kept;
        for (auto const& url : m_kept.of(kind())) {
            if (auto const server = serverAt(url))
                kept.push_back(entryFor(*server));
        }
        return kept;
    }

    RecentServers& m_servers;
    Preferences const& m_preferences;
    KeptEntries const& m_kept;
};

} // namespace

void addServerList(DynamicMenuProvider& lists, ListServices const& services) { lists.add(std::make_unique<ServerList>(services)); }

} // namespace zv
