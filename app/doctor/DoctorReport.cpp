#include "app/doctor/DoctorReport.h"

#include "app/model/Preferences.h"

#include <algorithm>
#include <map>

namespace zv {

namespace {

bool beginsWord(std::string_view text, std::size_t index)
{
    static constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    return index == 0 || letters.find(text[index - 1]) == std::string_view::npos;
}

/// The text up to its first path: a path may hold blanks, so where it ends nobody knows.
std::string withoutPaths(std::string_view text)
{
    for (auto slash = text.find('/'); slash != std::string_view::npos; slash = text.find('/', slash + 1)) {
        if (beginsWord(text, slash))
            return std::string(text.substr(0, slash)) + "(path)";
    }
    return std::string(text);
}

std::string surroundings(Environment const& environment)
{
    std::string lines;
    for (auto const* name : { "XDG_CURRENT_DESKTOP", "XDG_SESSION_TYPE", "LANG" }) {
        if (auto const value = valueOf(environment, name); !value.empty())
            lines += std::string(name) + "=" + withoutPaths(value) + "\n";
    }
    return lines;
}

std::string checksText(std::span<DoctorCheck const> checks)
{
    std::vector<DoctorCheck> anonymous(checks.begin(), checks.end());
    for (auto& check : anonymous) {
        check.explanation = withoutPaths(check.explanation);
        check.remedy = withoutPaths(check.remedy);
    }
    return doctorText(anonymous);
}

std::string settingsText(UserDefaults const& settings)
{
    std::string lines;
    for (auto const& description : Preferences::descriptions()) {
        bool const isBoolean = std::holds_alternative<bool>(description.defaultValue);
        auto const value
            = isBoolean ? std::string(settings.boolForKey(description.key) ? "true" : "false") : std::to_string(settings.integerForKey(description.key));
        lines += std::string(description.key) + "=" + value + (settings.isLocked(description.key) ? " (locked)" : "") + "\n";
    }
    return lines;
}

struct Census {
    std::map<std::string, int> kinds;
    int shortcuts = 0;

    void count(std::vector<MenuItem> const& items)
    {
        for (auto const& item : items) {
            ++kinds[std::string(item.kind == MenuItemKind::unknown ? std::string_view("another") : item.kind.rawValue())];
            shortcuts += item.keyEquivalent.has_value();
            count(item.children);
        }
    }
};

std::string menuText(std::vector<MenuItem> const& menu)
{
    Census census;
    census.count(menu);
    std::string lines;
    for (auto const& [kind, number] : census.kinds)
        lines += kind + " " + std::to_string(number) + "\n";
    return lines + "with a shortcut " + std::to_string(census.shortcuts) + "\n";
}

} // namespace

std::string doctorReport(std::span<DoctorCheck const> checks, UserDefaults const& settings, std::vector<MenuItem> const& menu, Environment const& environment)
{
    return surroundings(environment) + "\nChecks\n" + checksText(checks) + "\nSettings\n" + settingsText(settings) + "\nItems of the menu\n" + menuText(menu);
}

} // namespace zv
