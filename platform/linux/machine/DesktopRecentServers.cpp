#include "platform/linux/machine/DesktopRecentServers.h"

#include "base/Split.h"
#include "platform/linux/apps/RecentlyUsedFile.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace zv {

namespace {

/// Whether the URL may be a server's: these lists hold mostly local files and web pages.
bool mayBeServer(Url const& url)
{
    auto const scheme = url.scheme();
    return scheme != "file" && scheme != "http" && scheme != "https";
}

FileReading addBookmarkedFiles(std::vector<RecentServer>& servers, std::string const& path)
{
    return readRecentlyUsed(path, [&](RecentlyUsed&& bookmark) {
        auto const url = Url::parse(bookmark.href);
        if (url && !bookmark.isPrivate && mayBeServer(*url))
            servers.push_back({ *url, bookmark.visited });
    });
}

FileReading addBookmarkLines(std::vector<RecentServer>& servers, std::string const& path)
{
    std::string text;
    auto const reading = readInPieces(path, [&](std::string_view piece) {
        text += piece;
        return text.size() < std::size_t { 1 } << 20;
    });
    for (auto const line : split(text, '\n')) {
        if (auto const url = Url::parse(line.substr(0, line.find(' '))); url && mayBeServer(*url))
            servers.push_back({ *url });
    }
    return reading;
}

} // namespace

DesktopRecentServers::Files DesktopRecentServers::Files::of(XdgDirectories const& user)
{
    return { user.recentlyUsedFile(), user.config + "/gtk-3.0/bookmarks", user.config + "/gtk-3.0/servers" };
}

DesktopRecentServers::DesktopRecentServers(Tasks& tasks, Files files)
    : m_tasks(tasks)
    , m_files(std::move(files))
{
}

void DesktopRecentServers::list(std::function<void(List)> done)
{
    m_tasks.inBackground(
        TaskPriority::user, [files = m_files] { return readRecentServers(files); }, std::move(done));
}

RecentServers::List readRecentServers(DesktopRecentServers::Files const& files)
{
    std::vector<RecentServer> servers;
    std::array const readings { addBookmarkedFiles(servers, files.recentlyUsed), addBookmarkedFiles(servers, files.servers),
        addBookmarkLines(servers, files.bookmarks) };
    bool const anyFailed = std::find(readings.begin(), readings.end(), FileReading::failed) != readings.end();
    bool const anyComplete = std::find(readings.begin(), readings.end(), FileReading::complete) != readings.end();
    if (anyFailed && !anyComplete)
        return std::nullopt;
    return servers;
}

} // namespace zv
