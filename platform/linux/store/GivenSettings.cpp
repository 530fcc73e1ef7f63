#include "platform/linux/store/GivenSettings.h"

#include "base/Log.h"
#include "platform/linux/store/SettingsFile.h"

namespace zv {

namespace {

constexpr std::string_view lockedKey = "Locked";

void addTexts(PropertyList const* list, std::set<std::string, std::less<>>& texts)
{
    auto const* array = list ? list->array() : nullptr;
    for (auto const& each : array ? *array : PropertyListArray()) {
        if (auto const* text = each.string())
            texts.insert(*text);
    }
}

} // namespace

GivenSettings GivenSettings::read(std::vector<std::string> const& files)
{
    GivenSettings given;
    for (auto const& file : files) {
        auto const settings = SettingsFile(file).read();
        if (!settings) {
            logLine("the settings for all users in " + file + " could not be read: " + settings.error().reason);
            continue;
        }
        addTexts(settings->find(lockedKey), given.locked);
        for (auto const& [key, value] : *settings) {
            if (key != lockedKey && !given.values.contains(key))
                given.values.set(key, value);
        }
    }
    return given;
}

} // namespace zv
