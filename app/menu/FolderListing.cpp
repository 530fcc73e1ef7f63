#include "app/menu/FolderListing.h"

#include "app/menu/DisplayText.h"
#include "app/menu/FileEntry.h"
#include "base/Translation.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <utility>

namespace zv {

namespace {

NamedFile namedFile(FolderContents::Item const& item) { return { item.name, item.localizedName, item.traits }; }

/// An item's sort record: a few bytes here, its sort key in a block that all share.
struct Place {
    std::uint64_t keyStart; ///< the key's first bytes, which decide most comparisons
    std::size_t keyOffset;
    std::uint32_t keyLength;
    std::uint32_t rank; ///< folders before files where wanted
    std::int64_t measure; ///< the date, the size or the kind; alike for all where the name alone counts
    std::size_t index; ///< position in the contents
};

constexpr std::size_t usualKeyLength = 24;

bool isShownFolder(FolderContents::Item const& item) { return item.traits.isDirectory && !item.traits.isPackage; }

class FolderPlaces {
public:
    /// `measures` is empty where the name alone counts.
    FolderPlaces(FolderContents const& contents, std::vector<std::int64_t> const& measures, FolderListingOptions const& options)
        : m_contents(contents)
        , m_isReversed(options.isReversed)
    {
        m_places.reserve(contents.size());
        m_keys.reserve(contents.size() * usualKeyLength);
        for (std::size_t i = 0; i < contents.size(); ++i) {
            if (options.filter.empty() || isShownFolder(contents[i]) || fitsFilter(contents[i].name, options.filter))
                addPlace(i, contents[i], options.sortFoldersFirst, measures.empty() ? 0 : measures[i]);
        }
    }

    [[nodiscard]] std::size_t size() const { return m_places.size(); }

    /// The indexes of the first `count` items, in order.
    std::vector<std::size_t> first(std::size_t count)
    {
        auto const comesBefore = [this](Place const& a, Place const& b) { return isBefore(a, b); };
        auto const end = m_places.begin() + static_cast<std::ptrdiff_t>(std::min(count, m_places.size()));
        if (end != m_places.end())
            std::nth_element(m_places.begin(), end, m_places.end(), comesBefore);
        std::sort(m_places.begin(), end, comesBefore);
        std::vector<std::size_t> indexes(static_cast<std::size_t>(end - m_places.begin()));
        std::transform(m_places.begin(), end, indexes.begin(), [](Place const& place) { return place.index; });
        return indexes;
    }

private:
    void addPlace(std::size_t index, FolderContents::Item const& item, bool sortFoldersFirst, std::int64_t measure)
    {
        auto const start = m_keys.size();
        if (item.localizedName.empty())
            appendSortKey(m_keys, item.name);
        else
            appendSortKey(m_keys, sortNameOf(namedFile(item)));
        auto const key = std::string_view(m_keys).substr(start);
        auto const rank = sortFoldersFirst && !isShownFolder(item) ? 1U : 0U;
        m_places.push_back({ startOf(key), start, static_cast<std::uint32_t>(key.size()), rank, measure, index });
    }

    static std::uint64_t startOf(std::string_view key)
    {
        std::uint64_t start = 0;
        for (std::size_t i = 0; i < sizeof start; ++i)
            start = start << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0);
        return start;
    }

    [[nodiscard]] std::string_view keyOf(Place const& place) const { return std::string_view(m_keys).substr(place.keyOffset, place.keyLength); }

    [[nodiscard]] bool isBefore(Place const& a, Place const& b) const
    {
        if (a.rank != b.rank)
            return a.rank < b.rank;
        return m_isReversed ? isLess(b, a) : isLess(a, b);
    }

    [[nodiscard]] bool isLess(Place const& a, Place const& b) const
    {
        if (a.measure != b.measure)
            return a.measure < b.measure;
        if (a.keyStart != b.keyStart)
            return a.keyStart < b.keyStart;
        int const order = compareSortKeys(keyOf(a), keyOf(b));
        return order != 0 ? order < 0 : m_contents[a.index].name < m_contents[b.index].name;
    }

    FolderContents const& m_contents;
    bool m_isReversed;
    std::vector<Place> m_places;
    std::string m_keys;
};

/// A number for each kind of file, in the kinds' order: folders, then extensions.
std::vector<std::int64_t> kindsOf(FolderContents const& contents)
{
    std::map<std::string, std::int64_t> numbers;
    std::vector<std::string> kinds(contents.size());
    for (std::size_t i = 0; i < contents.size(); ++i) {
        kinds[i] = isShownFolder(contents[i]) ? std::string() : "." + lowerCased(withValidUtf8(pathExtension(contents[i].name)));
        numbers.emplace(kinds[i], 0);
    }
    std::int64_t next = 0;
    for (auto& [kind, number] : numbers)
        number = next++;
    std::vector<std::int64_t> measures(contents.size());
    std::transform(kinds.begin(), kinds.end(), measures.begin(), [&](auto const& kind) { return numbers.at(kind); });
    return measures;
}

/// Asks the disk only for what the order needs.
std::vector<std::int64_t> measuresFor(FolderOrder order, FolderReader const& reader, Url const& folder, FolderContents const& contents)
{
    switch (order) {
    case FolderOrder::name:
        return {};
    case FolderOrder::kind:
        return kindsOf(contents);
    case FolderOrder::dateChanged:
        return reader.measure(folder, contents, FileMeasure::dateChanged);
    case FolderOrder::dateAdded:
        return reader.measure(folder, contents, FileMeasure::dateAdded);
    case FolderOrder::size:
        break;
    }
    return reader.measure(folder, contents, FileMeasure::size);
}

DynamicEntry entryAt(FolderReader const& reader, Url const& folder, FolderContents::Item const& item)
{
    auto entry = listedEntry(folder.appending(item.name), namedFile(item));
    if (entry.hotkey)
        entry.hotkeyDoubt = reader.doubtAbout(*entry.fileURL);
    return entry;
}

std::vector<DynamicEntry> entriesWithHotkeys(FolderReader const& reader, Url const& folder, FolderContents const& contents)
{
    std::vector<DynamicEntry> found;
    for (std::size_t i = 0; i < contents.size(); ++i) {
        if (contents[i].name.find("-*[") == std::string_view::npos)
            continue;
        auto entry = entryAt(reader, folder, contents[i]);
        if (entry.hotkey)
            found.push_back(std::move(entry));
    }
    return found;
}

std::string reasonOf(FolderReadFailure failure)
{
    switch (failure) {
    case FolderReadFailure::notPermitted:
        return tr("You do not have permission to see this folder’s contents.");
    case FolderReadFailure::notFound:
        return tr("This folder no longer exists.");
    case FolderReadFailure::notAFolder:
        return tr("This is not a folder.");
    case FolderReadFailure::failed:
        break;
    }
    return tr("This folder cannot be read.");
}

/// A single entry for the folder itself, with the reason why it cannot be read.
FolderListing unreadableFolder(Url const& folder, FolderReadFailure failure)
{
    DynamicEntry entry;
    entry.id = folder.toString();
    entry.title = displayText(folder.lastPathComponent());
    entry.sortName = entry.title;
    entry.fileURL = folder;
    entry.isDirectory = true;
    entry.unavailabilityReason = reasonOf(failure);
    FolderListing listing;
    listing.entries.push_back(std::move(entry));
    listing.totalCount = 1;
    listing.failure = failure;
    return listing;
}

} // namespace

FolderListing listFolder(FolderReader const& reader, Url const& folder, FolderListingOptions const& options)
{
    auto const contents = reader.read(folder, options.showHiddenFiles ? HiddenFiles::included : HiddenFiles::skipped);
    if (!contents)
        return unreadableFolder(folder, contents.error());
    FolderListing listing;
    FolderPlaces places(*contents, measuresFor(options.order, reader, folder, *contents), options);
    auto const shown = places.first(options.limit);
    listing.totalCount = places.size();
    listing.entries.reserve(shown.size());
    for (std::size_t const index : shown)
        listing.entries.push_back(entryAt(reader, folder, (*contents)[index]));
    listing.withHotkeys = entriesWithHotkeys(reader, folder, *contents);
    return listing;
}

} // namespace zv
