#include "app/hotkeys/HotkeyReport.h"

#include "platform/text/Text.h"

#include <nlohmann/json.hpp>

namespace zv {

namespace {

using Json = nlohmann::ordered_json;

void addTarget(Json& entry, HotkeyTarget const& target)
{
    if (target.isMenu())
        entry["menu"] = true;
    else if (auto const* item = target.itemID())
        entry["item"] = item->toString();
    else
        entry["file"] = withValidUtf8(target.fileURL()->path());
}

Json entryFor(HotkeyID id, HotkeyCenter::Registration const& registration)
{
    Json entry { { "id", id }, { "shortcut", registration.shortcut } };
    addTarget(entry, registration.target);
    return entry;
}

Json entryFor(HotkeyCenter::Conflict const& conflict)
{
    Json entry { { "shortcut", conflict.shortcut } };
    addTarget(entry, conflict.target);
    return entry;
}

Json entryFor(HotkeyCenter::Unavailable const& unavailable)
{
    using Reason = HotkeyCenter::Unavailable::Reason;
    Json entry { { "shortcut", unavailable.shortcut } };
    addTarget(entry, unavailable.target);
    entry["reason"] = unavailable.reason == Reason::keptBySystem ? "keptBySystem" : "notOnLayout";
    return entry;
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
        for (auto const& [id, registration] : center->registrations())
            report["registrations"].push_back(entryFor(id, registration));
        for (auto const& conflict : center->conflicts())
            report["conflicts"].push_back(entryFor(conflict));
        report["unavailable"] = Json::array();
        for (auto const& unavailable : center->unavailable())
            report["unavailable"].push_back(entryFor(unavailable));
        report["support"] = nameOf(center->support());
    }
    return report.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace zv
