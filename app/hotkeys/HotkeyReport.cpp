#include "app/hotkeys/HotkeyReport.h"

#include "platform/text/Text.h"

#include <nlohmann/json.hpp>

#include <unordered_map>

namespace zv {

namespace {

using Json = nlohmann::ordered_json;

/// Of the items with a shortcut, so that no reader of the report must load the menu.
using Titles = std::unordered_map<Uuid, std::string>;

void collectTitles(std::vector<MenuItem> const& items, Titles& titles)
{
    for (auto const& item : items) {
        if (item.keyEquivalent)
            titles.emplace(item.id, item.displayTitle());
        collectTitles(item.children, titles);
    }
}

Json entryFor(Json entry, HotkeyTarget const& target, Titles const& titles)
{
    auto const* item = target.itemID();
    if (target.isMenu())
        entry["menu"] = true;
    else if (!item)
        entry["file"] = withValidUtf8(target.fileURL()->path());
    if (item)
        entry["item"] = item->toString();
    if (auto const title = item ? titles.find(*item) : titles.end(); title != titles.end())
        entry["title"] = title->second;
    return entry;
}

char const* nameOf(HotkeyCenter::Unavailable::Reason reason)
{
    return reason == HotkeyCenter::Unavailable::Reason::keptBySystem ? "keptBySystem" : "notOnLayout";
}

char const* nameOf(HotkeySupport support)
{
    if (support == HotkeySupport::none)
        return "none";
    return support == HotkeySupport::everywhere ? "everywhere" : "askingTheUser";
}

} // namespace

std::string hotkeyReport(HotkeyCenter const* center)
{
    Json report { { "registrations", Json::array() }, { "conflicts", Json::array() } };
    if (center) {
        Titles titles;
        collectTitles(center->menuItems(), titles);
        for (auto const& [id, registration] : center->registrations())
            report["registrations"].push_back(entryFor({ { "id", id }, { "shortcut", registration.shortcut } }, registration.target, titles));
        for (auto const& conflict : center->conflicts())
            report["conflicts"].push_back(entryFor({ { "shortcut", conflict.shortcut } }, conflict.target, titles));
        report["unavailable"] = Json::array();
        for (auto const& unavailable : center->unavailable())
            report["unavailable"].push_back(
                entryFor({ { "shortcut", unavailable.shortcut }, { "reason", nameOf(unavailable.reason) } }, unavailable.target, titles));
        report["support"] = nameOf(center->support());
        for (auto const& [file, line] : center->bindingLines())
            report["bindings"].push_back({ { "file", withValidUtf8(file) }, { "line", withValidUtf8(line) } });
    }
    return report.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace zv
