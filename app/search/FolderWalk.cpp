#include "app/search/FolderWalk.h"

#include "app/menu/FileEntry.h"

#include <utility>

namespace zv {

namespace {

/// Empty for what cannot be opened, which is not found.
std::string titleFor(FolderContents::Item const& item)
{
    return item.traits.fault == FileFault::none ? titleOf({ item.name, item.localizedName, item.traits }) : std::string();
}

bool isFolder(FolderContents::Item const& item) { return item.traits.isDirectory && !item.traits.isPackage; }

} // namespace

SearchPlaces FolderWalk::step(std::vector<SearchRoot> roots, std::chrono::milliseconds duration)
{
    for (auto& root : roots)
        m_queue.push_back({ std::move(root), false });
    auto const end = std::chrono::steady_clock::now() + duration;
    auto const places = std::make_shared<std::vector<SearchPlace>>();
    while (!isDone()) {
        auto candidate = std::move(m_queue.front());
        m_queue.pop_front();
        if (auto place = read(std::move(candidate)))
            places->push_back(std::move(*place));
        if (std::chrono::steady_clock::now() >= end)
            break;
    }
    return places;
}

std::optional<SearchPlace> FolderWalk::read(Candidate candidate)
{
    auto& root = candidate.root;
    if (m_reader->isRemote(root.folder))
        return std::nullopt;
    auto const resolved = candidate.isResolved ? root.folder : m_files->resolvingSymlinks(root.folder);
    if (!m_visited.insert(resolved.toString()).second)
        return std::nullopt;
    auto contents = m_reader->read(root.folder, m_hiddenFiles);
    if (!contents)
        return std::nullopt;
    SearchPlace place { .way = std::move(root.way), .titles = {}, .folder = SearchPlace::Folder { root.folder, root.depth, std::move(contents).value() } };
    auto const& items = place.folder->contents;
    m_entryCount += items.size();
    for (std::size_t i = 0; i < items.size() && !m_isStopped; ++i) {
        auto title = titleFor(items[i]);
        place.titles.add(title);
        if (root.depth >= 1 && isFolder(items[i]) && !title.empty())
            addFolder(place, items[i], std::move(title));
    }
    return place;
}

void FolderWalk::addFolder(SearchPlace const& place, FolderContents::Item const& item, std::string title)
{
    auto way = place.way;
    way.push_back(std::move(title));
    m_queue.push_back({ { place.folder->url.appending(item.name), place.folder->depth - 1, std::move(way) }, !item.isLink });
}

} // namespace zv
