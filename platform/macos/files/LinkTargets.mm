#import "platform/macos/files/LinkTargets.h"

#import "platform/macos/cocoa/Conversions.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <sys/mount.h>
#include <sys/param.h>
#include <unistd.h>
#include <vector>

namespace zv {

namespace {

constexpr int mostLinks = 32; // a longer chain goes round in circles

/// The kernel's own table: no volume is asked. In memory of its own, for any thread.
std::vector<struct statfs> mountTable()
{
    int const expected = getfsstat(nullptr, 0, MNT_NOWAIT);
    std::vector<struct statfs> mounts(static_cast<std::size_t>(std::max(expected, 0)) + 4); // room for mounts added in between
    int const count = getfsstat(mounts.data(), static_cast<int>(mounts.size() * sizeof(struct statfs)), MNT_NOWAIT);
    mounts.resize(static_cast<std::size_t>(std::max(count, 0)));
    return mounts;
}

/// Whether the mount point nearest above the path is remote.
bool liesOnRemoteMount(std::vector<struct statfs> const& mounts, std::string const& path)
{
    std::size_t longest = 0;
    bool isRemote = false;
    for (auto const& mount : mounts) {
        std::string_view const point = mount.f_mntonname;
        bool const holds = point == "/" || path == point || (path.starts_with(point) && path[point.size()] == '/');
        if (!holds || point.size() < longest)
            continue;
        longest = point.size();
        isRemote = (mount.f_flags & MNT_LOCAL) == 0;
    }
    return isRemote;
}

/// The link's target; empty when the path is no symbolic link.
std::string linkAt(std::string const& path)
{
    char target[PATH_MAX];
    auto const length = readlink(path.c_str(), target, sizeof target);
    return length > 0 ? std::string(target, static_cast<std::size_t>(length)) : std::string();
}

bool isAlias(NSURL* url)
{
    NSNumber* isLink = nil;
    NSNumber* isEither = nil;
    [url getResourceValue:&isLink forKey:NSURLIsSymbolicLinkKey error:nullptr];
    [url getResourceValue:&isEither forKey:NSURLIsAliasFileKey error:nullptr];
    return isEither.boolValue && !isLink.boolValue;
}

/// The path stored in the alias; empty when it has none, or is no alias.
std::string pathInAlias(std::string const& path)
{
    NSURL* const url = toNSURL(Url::fromPath(path));
    NSData* const data = isAlias(url) ? [NSURL bookmarkDataWithContentsOfURL:url error:nullptr] : nil;
    NSDictionary* const values = data ? [NSURL resourceValuesForKeys:@[ NSURLPathKey ] fromBookmarkData:data] : nil;
    return fromNSString([values objectForKey:NSURLPathKey]);
}

/// The path of a component below a place; "." and ".." as the kernel has them.
std::string below(std::string const& place, std::string const& component)
{
    if (component == "/" || component == "/.")
        return place;
    return component == "/.." ? place.substr(0, place.rfind('/')) : place + component;
}

/// Walks a path from its root, a component at a time.
class Walk {
public:
    bool endsOnRemoteVolume(std::string rest)
    {
        std::string place; // empty for the root
        while (!rest.empty()) {
            auto const end = std::min(rest.find('/', 1), rest.size());
            auto const next = below(place, rest.substr(0, end));
            rest.erase(0, end);
            if (liesOnRemoteMount(m_mounts, next))
                return true;
            auto const target = m_links < mostLinks ? targetOf(next, rest) : std::string();
            if (!target.empty()) {
                ++m_links;
                rest = (target.front() == '/' ? target : place + "/" + target) + rest;
            }
            place = target.empty() ? next : std::string();
        }
        return false;
    }

private:
    /// The target of a link, or of an alias at the end of the path: nothing lies below an alias.
    static std::string targetOf(std::string const& place, std::string const& rest)
    {
        auto const link = linkAt(place);
        bool const isEnd = rest.empty() && !place.empty();
        return link.empty() && isEnd ? pathInAlias(place) : link;
    }

    std::vector<struct statfs> m_mounts = mountTable();
    int m_links = 0;
};

/// The path without symbolic links, of which the system's own method leaves some; itself on failure.
NSURL* withoutSymlinks(NSURL* url)
{
    char real[PATH_MAX];
    return realpath(fromNSString(url.path).c_str(), real) ? toNSURL(Url::fromPath(real)) : url;
}

} // namespace

bool isMountPoint(std::string const& path)
{
    auto const mounts = mountTable();
    return std::any_of(mounts.begin(), mounts.end(), [&path](auto const& mount) { return path == mount.f_mntonname; });
}

bool leadsToRemoteVolume(std::string const& path) { return Walk().endsOnRemoteVolume(path); }

NSURL* targetOfLinks(NSURL* url)
{
    NSURL* place = withoutSymlinks(url);
    for (int links = 0; links < mostLinks && place && isAlias(place); ++links) {
        NSURL* const target = [NSURL URLByResolvingAliasFileAtURL:place
                                                          options:NSURLBookmarkResolutionWithoutUI | NSURLBookmarkResolutionWithoutMounting
                                                            error:nullptr];
        place = target ? withoutSymlinks(target) : nil;
    }
    return place;
}

} // namespace zv
