#include "app/hotkeys/FileHotkeys.h"

#include "base/MainThread.h"

#include <set>
#include <utility>

namespace zv {

namespace {

FolderShortcuts shortcutsOf(std::vector<DynamicEntry> const& entries)
{
    FolderShortcuts shortcuts;
    for (auto const& entry : entries) {
        if (!entry.isSeparator && entry.hotkey && !entry.hotkeyDoubt && entry.fileURL)
            shortcuts.emplace(*entry.fileURL, *entry.hotkey);
    }
    return shortcuts;
}

class RootList {
public:
    explicit RootList(LocationServices services)
        : m_services(services)
    {
    }

    void add(Url const& url)
    {
        auto resolved = m_services.files.resolvingSymlinks(url);
        if (m_paths.insert(resolved.path()).second)
            m_urls.push_back(std::move(resolved));
    }

    void addBelow(std::vector<MenuItem> const& items)
    {
        for (auto const& item : items) {
            if (auto const url = urlOf(item))
                add(*url);
            addBelow(item.children);
        }
    }

    [[nodiscard]] std::vector<Url> take() { return std::move(m_urls); }

private:
    [[nodiscard]] std::optional<Url> urlOf(MenuItem const& item) const
    {
        if (item.isHidden || item.kind != MenuItemKind::fsObject || !item.location)
            return std::nullopt;
        return item.location->resolvedURL(m_services);
    }

    LocationServices m_services;
    std::set<std::string> m_paths;
    std::vector<Url> m_urls;
};

} // namespace

FileHotkeys::FileHotkeys(PrescanServices services, HotkeyCenter& center)
    : m_services(std::move(services))
    , m_center(center)
{
    m_center.beforePass = [this] {
        if (forgetVanished())
            m_center.setFileHotkeys(united());
    };
}

FileHotkeys::~FileHotkeys() { m_center.beforePass = nullptr; }

void FileHotkeys::folderListed(Url const& folder, std::vector<DynamicEntry> const& withHotkeys)
{
    assertMainThread();
    bool const isChanged = replace(m_services.files->resolvingSymlinks(folder).path(), shortcutsOf(withHotkeys));
    if (forgetVanished() || isChanged)
        installUnion();
}

void FileHotkeys::install(ShortcutsByFolder prescanned)
{
    assertMainThread();
    if (prescanned.empty())
        return;
    for (auto& [folderPath, shortcuts] : prescanned)
        replace(folderPath, std::move(shortcuts));
    installUnion();
}

void FileHotkeys::forget(Url const& file)
{
    assertMainThread();
    std::size_t forgotten = 0;
    for (auto& [folderPath, shortcuts] : m_byFolder)
        forgotten += shortcuts.erase(file);
    if (forgotten > 0)
        installUnion();
}

void FileHotkeys::prescan(std::function<std::vector<Url>()> const& roots, std::int64_t depth, HiddenFiles hiddenFiles)
{
    assertMainThread();
    if (depth < 1)
        return;
    auto done = m_lifetime.guard([this](ShortcutsByFolder result) { install(std::move(result)); });
    m_services.tasks.runDetached([reader = m_services.reader, files = m_services.files, roots = roots(), depth, hiddenFiles,
                                     done = std::move(done)]() -> std::function<void()> {
        auto const result = std::make_shared<ShortcutsByFolder>(prescanHotkeys(*reader, *files, roots, depth, hiddenFiles));
        return [result, done]() mutable { done(std::move(*result)); };
    });
}

bool FileHotkeys::replace(std::string const& folderPath, FolderShortcuts shortcuts)
{
    auto const known = m_byFolder.find(folderPath);
    if (shortcuts.empty()) {
        bool const hadSome = known != m_byFolder.end();
        if (hadSome)
            m_byFolder.erase(known);
        return hadSome;
    }
    if (known != m_byFolder.end() && known->second == shortcuts)
        return false;
    m_byFolder.insert_or_assign(folderPath, std::move(shortcuts));
    return true;
}

void FileHotkeys::installUnion()
{
    m_center.setFileHotkeys(united());
    m_center.reregister();
}

bool FileHotkeys::forgetVanished()
{
    return std::erase_if(m_byFolder, [this](auto const& known) { return hasVanished(known.first); }) > 0;
}

/// A folder that may not answer is taken to be there.
bool FileHotkeys::hasVanished(std::string const& folderPath) const
{
    auto const folder = Url::fromPath(folderPath);
    return !m_services.reader->isRemote(folder) && !m_services.files->exists(folder);
}

FolderShortcuts FileHotkeys::united() const
{
    FolderShortcuts all;
    for (auto const& [folderPath, shortcuts] : m_byFolder)
        all.insert(shortcuts.begin(), shortcuts.end());
    return all;
}

std::vector<Url> foldersToPrescan(std::vector<MenuItem> const& items, Url const& itemsFolder, LocationServices services)
{
    RootList roots(services);
    roots.addBelow(items);
    roots.add(itemsFolder);
    return roots.take();
}

} // namespace zv
