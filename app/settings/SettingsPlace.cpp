#include "app/settings/SettingsPlace.h"

namespace zv {

namespace {

constexpr char const* widthKey = "SettingsWidth";
constexpr char const* heightKey = "SettingsHeight";
constexpr char const* tabKey = "SettingsTab";

} // namespace

std::optional<SettingsPlace::Size> SettingsPlace::size(Size smallest) const
{
    Size const kept { m_defaults.integerForKey(widthKey), m_defaults.integerForKey(heightKey) };
    bool const isUsable = kept.width >= smallest.width && kept.height >= smallest.height;
    return isUsable ? std::optional(kept) : std::nullopt;
}

void SettingsPlace::keepSize(Size size)
{
    keep(widthKey, size.width);
    keep(heightKey, size.height);
}

std::int64_t SettingsPlace::tab(std::int64_t count) const
{
    auto const kept = m_defaults.integerForKey(tabKey);
    return kept >= 0 && kept < count ? kept : 0;
}

void SettingsPlace::keepTab(std::int64_t tab) { keep(tabKey, tab); }

/// Stores only changes: opening and closing the window stores nothing.
void SettingsPlace::keep(char const* key, std::int64_t value)
{
    if (m_defaults.integerForKey(key) != value)
        m_defaults.keep(key, value);
}

} // namespace zv
