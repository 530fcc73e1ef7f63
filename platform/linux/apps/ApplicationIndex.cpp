#include "platform/linux/apps/ApplicationIndex.h"

#include "base/MainThread.h"
#include "base/Split.h"
#include "platform/linux/posix/FolderStream.h"
#include "platform/linux/posix/WholeFiles.h"

#include <glib.h>

#include <algorithm>
#include <sys/stat.h>

namespace zv {

namespace {

constexpr int deepestFolder = 8;
constexpr std::string_view extension = ".desktop";

std::string lowerCasedId(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](char c) { return g_ascii_tolower(c); });
    return lower;
}

std::string_view withoutExtension(std::string_view id) { return id.ends_with(extension) ? id.substr(0, id.size() - extension.size()) : id; }

std::string_view lastPart(std::string_view text, char separator) { return text.substr(text.rfind(separator) + 1); }

/// The folder's time of change in nanoseconds; 0 when it is missing, which is a state like any other.
std::int64_t changeTime(std::string const& folder)
{
    struct stat status { };
    if (stat(folder.c_str(), &status) != 0)
        return 0;
    return static_cast<std::int64_t>(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec;
}

/// The words of a command line that are no place for a file ("%U").
std::ptrdiff_t argumentCount(std::string_view commandLine)
{
    auto const words = split(commandLine, ' ');
    return std::ranges::count_if(words, [](auto word) { return !word.empty() && word.front() != '%'; });
}

struct Names {
    std::vector<std::string> entries;
    std::vector<std::string> folders;
};

bool isFolder(dirent const& item, std::string const& path)
{
    if (item.d_type != DT_UNKNOWN && item.d_type != DT_LNK)
        return item.d_type == DT_DIR;
    struct stat status { };
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

Names namesIn(std::string const& folder)
{
    Names names;
    FolderStream const directory(opendir(folder.c_str()));
    while (auto const* item = directory ? readdir(directory.get()) : nullptr) {
        std::string const name = item->d_name;
        if (name.ends_with(extension))
            names.entries.push_back(name);
        else if (!name.starts_with('.') && isFolder(*item, folder + "/" + name))
            names.folders.push_back(name);
    }
    std::sort(names.entries.begin(), names.entries.end());
    std::sort(names.folders.begin(), names.folders.end());
    return names;
}

} // namespace

ApplicationIndex ApplicationIndex::read(std::vector<std::string> const& folders, DesktopAudience const& audience)
{
    ApplicationIndex index;
    index.m_desktops = audience.desktops;
    for (auto const& folder : folders)
        index.addFolder(folder, "", audience, 0);
    return index;
}

void ApplicationIndex::addFolder(std::string const& folder, std::string const& idPrefix, DesktopAudience const& audience, int depth)
{
    m_fingerprint.emplace_back(folder, changeTime(folder));
    auto const names = namesIn(folder);
    auto const place = withoutLinks(folder);
    for (auto const& name : names.entries) {
        auto const id = lowerCasedId(withoutExtension(idPrefix + name));
        if (!m_byId.contains(id)) {
            if (auto entry = readApplicationEntry(folder + "/" + name, idPrefix + name, audience))
                add(std::move(*entry));
        }
        if (auto const known = m_byId.find(id); known != m_byId.end())
            m_byFile.emplace(followingLink(place + "/" + name), known->second);
    }
    if (depth == deepestFolder)
        return;
    for (auto const& name : names.folders)
        addFolder(folder + "/" + name, idPrefix + name + "-", audience, depth + 1);
}

void ApplicationIndex::add(ApplicationEntry entry)
{
    auto const place = m_entries.size();
    auto const id = lowerCasedId(withoutExtension(entry.id));
    m_byId.emplace(id, place);
    if (!entry.isHidden) {
        m_byShortId.emplace(lastPart(id, '.'), place);
        if (!entry.startupWMClass.empty())
            m_byWindowClass.emplace(lowerCasedId(entry.startupWMClass), place);
        addProgram(entry, place);
    }
    m_entries.push_back(std::move(entry));
}

/// The entry that a menu shows stands for a program with several; "thunar %F" before "thunar --bulk-rename %F".
void ApplicationIndex::addProgram(ApplicationEntry const& entry, std::size_t place)
{
    auto const program = entry.noDisplay ? std::nullopt : entry.program();
    if (!program)
        return;
    auto const [known, isNew] = m_byProgram.emplace(lastPart(*program, '/'), place);
    if (!isNew && argumentCount(entry.exec) < argumentCount(m_entries[known->second].exec))
        known->second = place;
}

ApplicationEntry const* ApplicationIndex::at(Names const& names, std::string_view name) const
{
    auto const found = names.find(name);
    return found == names.end() || m_entries[found->second].isHidden ? nullptr : &m_entries[found->second];
}

ApplicationEntry const* ApplicationIndex::find(std::string_view id) const { return at(m_byId, lowerCasedId(withoutExtension(id))); }

ApplicationEntry const* ApplicationIndex::findByWindowClass(std::string_view windowClass) const
{
    if (windowClass.empty())
        return nullptr;
    auto const lower = lowerCasedId(windowClass);
    for (auto const* names : { &m_byWindowClass, &m_byId, &m_byShortId }) {
        if (auto const* entry = at(*names, lower))
            return entry;
    }
    return nullptr;
}

ApplicationEntry const* ApplicationIndex::findByProgram(std::string_view program) const { return at(m_byProgram, lastPart(program, '/')); }

ApplicationEntry const* ApplicationIndex::findByFile(std::string const& path) const { return at(m_byFile, path); }

bool ApplicationIndex::isCurrent() const
{
    return std::all_of(m_fingerprint.begin(), m_fingerprint.end(), [](auto const& folder) { return changeTime(folder.first) == folder.second; });
}

ApplicationCatalog::ApplicationCatalog(Tasks& tasks, std::vector<std::string> folders, DesktopAudience audience)
    : m_tasks(tasks)
    , m_folders(std::move(folders))
    , m_audience(std::move(audience))
{
}

void ApplicationCatalog::withIndex(std::function<void(Index)> use)
{
    assertMainThread();
    if (m_index && m_index->isCurrent())
        return use(m_index);
    m_waiting.push_back(std::move(use));
    if (m_waiting.size() > 1)
        return; // the background read is under way
    auto const received = [this](ApplicationIndex index) {
        m_index = std::make_shared<ApplicationIndex const>(std::move(index));
        for (auto const& waiting : std::exchange(m_waiting, {}))
            waiting(m_index);
    };
    m_tasks.inBackground(
        TaskPriority::user, [folders = m_folders, audience = m_audience] { return ApplicationIndex::read(folders, audience); }, m_lifetime.guard(received));
}

} // namespace zv
