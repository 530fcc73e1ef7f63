#include "platform/linux/apps/DesktopRecentFiles.h"

#include "base/Log.h"
#include "base/Url.h"
#include "platform/linux/apps/RecentlyUsedFile.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <string_view>
#include <unordered_map>

namespace zv {

namespace {

constexpr std::string_view applicationExtension = ".desktop";

UsedItemType typeOf(RecentlyUsed const& bookmark, std::string_view path)
{
    if (bookmark.mimeType == "inode/directory")
        return UsedItemType::folder;
    return path.ends_with(applicationExtension) ? UsedItemType::application : UsedItemType::document;
}

/// Collects used items, each path once with its latest use.
class UsedItemCollector {
public:
    UsedItemCollector(ApplicationIndex const& applications, std::int64_t since)
        : m_applications(applications)
        , m_since(since)
    {
    }

    void addBookmark(RecentlyUsed const& bookmark)
    {
        if (bookmark.visited >= m_since && !bookmark.isPrivate)
            addFile(bookmark);
        for (auto const& application : bookmark.applications) {
            if (application.lastUsed >= m_since)
                addApplication(application);
        }
    }
    void addLaunch(LaunchLog::Launch const& launch)
    {
        if (launch.time >= m_since)
            add({ ofOneName(launch.path), launch.time, UsedItemType::application });
    }
    [[nodiscard]] std::vector<UsedItem> newestFirst()
    {
        std::vector<UsedItem> items;
        items.reserve(m_items.size());
        for (auto& [path, item] : m_items)
            items.push_back(std::move(item));
        std::sort(
            items.begin(), items.end(), [](auto const& a, auto const& b) { return a.lastUsed != b.lastUsed ? a.lastUsed > b.lastUsed : a.path < b.path; });
        return items;
    }

private:
    void addFile(RecentlyUsed const& bookmark)
    {
        auto const url = Url::parse(bookmark.href);
        if (!url || !url->isFile())
            return;
        auto path = url->path();
        auto const type = typeOf(bookmark, path);
        add({ type == UsedItemType::application ? ofOneName(path) : path, bookmark.visited, type });
    }
    /// The application's entry, whichever way led to it: a link, a copy for all users below the user's own.
    [[nodiscard]] std::string ofOneName(std::string const& path) const
    {
        auto const file = m_mounts.follow(path);
        auto const* entry = file.kind == MountTable::Fate::Kind::found ? m_applications.findByFile(file.path) : nullptr;
        return entry ? entry->path : path;
    }
    void addApplication(RecentlyUsed::Application const& application)
    {
        if (auto const* entry = entryOf(application); entry && entry->isListed())
            add({ entry->path, application.lastUsed, UsedItemType::application });
    }
    /// Looks each application up once, as the same few stand in thousands of bookmarks.
    ApplicationEntry const* entryOf(RecentlyUsed::Application const& application)
    {
        auto const [place, isNew] = m_entryOfCommand.try_emplace(application.exec + '\n' + application.name, nullptr);
        if (isNew)
            place->second = lookUp(application);
        return place->second;
    }
    ApplicationEntry const* lookUp(RecentlyUsed::Application const& application) const
    {
        // Registered command lines are quoted as a whole: 'evince %u'.
        auto const commandLine = programOfCommandLine(application.exec).value_or(application.exec);
        auto const program = programOfCommandLine(commandLine).value_or(commandLine);
        if (auto const* entry = m_applications.findByWindowClass(application.name); entry && entry->isListed())
            return entry;
        return m_applications.findByProgram(program);
    }
    void add(UsedItem item)
    {
        auto const [place, isNew] = m_items.try_emplace(item.path, item);
        if (!isNew && place->second.lastUsed < item.lastUsed)
            place->second = std::move(item);
    }

    ApplicationIndex const& m_applications;
    std::int64_t m_since;
    MountTable const m_mounts = MountTable::current();
    std::unordered_map<std::string, UsedItem> m_items;
    std::unordered_map<std::string, ApplicationEntry const*> m_entryOfCommand;
};

bool admits(RecentItemsScope scope, UsedItemType type)
{
    switch (scope) {
    case RecentItemsScope::all:
        return true;
    case RecentItemsScope::applications:
        return type == UsedItemType::application;
    case RecentItemsScope::folders:
        return type == UsedItemType::folder;
    case RecentItemsScope::documents:
        return type == UsedItemType::document;
    }
    return false;
}

/// The data that a search needs off the main thread.
struct Sources {
    std::string recentlyUsedFile;
    LaunchLog launches;
    RecentItemsScope scope;
    std::int64_t since;
    std::size_t limit;

    [[nodiscard]] std::vector<RecentFile> search(ApplicationIndex const& applications) const
    {
        auto items = usedItems(recentlyUsedFile, launches.read(), applications, since);
        std::erase_if(items, [this](UsedItem const& item) { return !admits(scope, item.type); });
        return existingItems(items, MountTable::current(), limit);
    }
};

class RecentlyUsedSearch : public RecentFilesSearch {
public:
    RecentlyUsedSearch(Tasks& tasks, RecentFiles::Done done)
        : m_tasks(tasks)
        , m_done(std::move(done))
    {
    }
    void start(ApplicationCatalog& applications, Sources sources)
    {
        applications.withIndex(m_lifetime.guard([this, sources = std::move(sources)](ApplicationCatalog::Index const& index) { searchIn(index, sources); }));
    }

private:
    void searchIn(ApplicationCatalog::Index const& index, Sources const& sources)
    {
        m_tasks.inBackground(
            TaskPriority::user, [sources, index] { return sources.search(*index); }, m_lifetime.guard([this](std::vector<RecentFile> files) {
                auto const done = m_done; // a copy, which outlives the search that it may destroy
                done(std::move(files));
            }));
    }

    Tasks& m_tasks;
    RecentFiles::Done m_done;
    Lifetime m_lifetime;
};

} // namespace

std::vector<UsedItem> usedItems(
    std::string const& recentlyUsedFile, std::vector<LaunchLog::Launch> const& launches, ApplicationIndex const& applications, std::int64_t since)
{
    UsedItemCollector collector(applications, since);
    if (readRecentlyUsed(recentlyUsedFile, [&](RecentlyUsed&& bookmark) { collector.addBookmark(bookmark); }) == FileReading::failed)
        logLine("the list of recently used files cannot be read");
    for (auto const& launch : launches)
        collector.addLaunch(launch);
    return collector.newestFirst();
}

std::vector<RecentFile> existingItems(std::vector<UsedItem> const& items, MountTable const& mounts, std::size_t limit)
{
    std::vector<RecentFile> existing;
    for (auto const& item : items) {
        if (existing.size() == limit)
            break;
        auto const fate = mounts.follow(item.path);
        if (fate.kind == MountTable::Fate::Kind::missing)
            continue;
        bool const isRemote = fate.kind == MountTable::Fate::Kind::remote;
        existing.push_back({ item.path, isRemote ? item.type == UsedItemType::folder : fate.isDirectory, isRemote });
    }
    return existing;
}

DesktopRecentFiles::DesktopRecentFiles(Services services, std::string recentlyUsedFile, LaunchLog launches)
    : m_services(services)
    , m_recentlyUsedFile(std::move(recentlyUsedFile))
    , m_launches(std::move(launches))
{
}

std::unique_ptr<RecentFilesSearch> DesktopRecentFiles::find(RecentFilesQuestion const& question, Done done)
{
    auto const since = std::chrono::system_clock::to_time_t(m_services.clock.now() - question.usedWithin);
    auto search = std::make_unique<RecentlyUsedSearch>(m_services.tasks, std::move(done));
    search->start(m_services.applications, { m_recentlyUsedFile, m_launches, question.scope, since, question.limit });
    return search;
}

} // namespace zv
