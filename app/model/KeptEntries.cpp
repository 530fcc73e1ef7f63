#include "app/model/KeptEntries.h"

#include "base/MainThread.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace zv {

namespace {

constexpr std::string_view listKey = "List";
constexpr std::string_view urlKey = "URL";

/// Empty for a record of another list, and for one that cannot be read.
std::optional<Url> urlIn(PropertyList const& record, MenuItemKind::Case list)
{
    auto const* fields = record.dictionary();
    auto const* of = fields ? fields->string(listKey) : nullptr;
    auto const* url = fields ? fields->string(urlKey) : nullptr;
    if (!of || !url || *of != MenuItemKind(list).rawValue())
        return std::nullopt;
    return Url::parse(*url);
}

} // namespace

std::vector<Url> KeptEntries::files(PropertyList const& stored)
{
    std::vector<Url> files;
    (void)moved(stored, [&files](std::string const& path) {
        files.push_back(Url::fromPath(path));
        return path;
    });
    return files;
}

PropertyList KeptEntries::moved(PropertyList const& stored, std::function<std::string(std::string const&)> const& path)
{
    auto result = stored;
    auto* records = result.array();
    for (std::size_t i = 0; records && i < records->size(); ++i) {
        auto* fields = (*records)[i].dictionary();
        auto const* text = fields ? fields->string(urlKey) : nullptr;
        auto const url = text ? Url::parse(*text) : std::nullopt;
        if (url && url->isFile())
            fields->set(urlKey, Url::fromPath(path(url->path())).toString());
    }
    return result;
}

PropertyListArray KeptEntries::records() const
{
    assertMainThread();
    auto const stored = m_defaults.object(defaultsKey);
    auto const* records = stored ? stored->array() : nullptr;
    return records ? *records : PropertyListArray();
}

std::vector<Url> KeptEntries::of(MenuItemKind::Case list) const
{
    std::vector<Url> kept;
    for (auto const& record : records()) {
        auto url = urlIn(record, list);
        if (url && kept.size() < capacity && std::find(kept.begin(), kept.end(), *url) == kept.end())
            kept.push_back(std::move(*url));
    }
    return kept;
}

bool KeptEntries::has(MenuItemKind::Case list, Url const& url) const
{
    auto const kept = of(list);
    return std::find(kept.begin(), kept.end(), url) != kept.end();
}

void KeptEntries::toggle(MenuItemKind::Case list, Url const& url)
{
    auto kept = records();
    if (std::erase_if(kept, [&](PropertyList const& record) { return urlIn(record, list) == url; }) == 0)
        kept.emplace_back(PropertyListDictionary { { std::string(listKey), MenuItemKind(list).rawValue() }, { std::string(urlKey), url.toString() } });
    m_defaults.keep(defaultsKey, std::move(kept));
}

} // namespace zv
