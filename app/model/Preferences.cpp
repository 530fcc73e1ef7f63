#include "app/model/Preferences.h"

#include "base/MainThread.h"

#include <array>
#include <string>
#include <utility>

namespace zv {

namespace {

constexpr std::int64_t integer(std::int64_t value) { return value; }

// Ordered by property number. "ScanDepth" is the older format's key.
constexpr std::array<PreferenceDescription, 12> table { {
    { "ReplaceAppleMenu", true, mark("the menu opens from the corner of the panel or menu bar") },
    { "ShowStatusItem", true, mark("the menu has an icon in the panel or menu bar") },
    { "RainbowAppleLogo", true, mark("six colours in that corner") },
    { "ShowIcons", true, mark("icons beside the entries") },
    { "ShowHiddenFiles", false, mark("hidden files in folder submenus") },
    { "SortFoldersFirst", true, mark("folders before files") },
    { "RecentItemsLimit", integer(20), mark("entries in a list of recent items") },
    { "ScanDepth", integer(10), mark("levels of folders that open as submenus") },
    { "MaximumItemsPerFolder", integer(250), mark("entries listed of one folder") },
    { "HotkeyPrescanDepth", integer(0), mark("levels of folders searched for shortcuts in file names") },
    { Preferences::rememberChoicesKey, true, mark("what was chosen last comes first in a search") },
    { "ShowCommandIcons", false, mark("on a Mac, icons beside commands such as Sleep, too") },
} };

PropertyList asPropertyList(std::variant<bool, std::int64_t> const& value)
{
    return std::visit([](auto each) { return PropertyList(each); }, value);
}

PropertyListDictionary registeredDefaults()
{
    PropertyListDictionary defaults;
    for (auto const& description : table)
        defaults.set(description.key, asPropertyList(description.defaultValue));
    return defaults;
}

std::string_view keyOf(int index) { return table.at(static_cast<std::size_t>(index)).key; }

} // namespace

std::span<PreferenceDescription const> Preferences::descriptions() { return table; }

Preferences::Preferences(UserDefaults& defaults)
    : m_defaults(defaults)
{
    assertMainThread();
    m_defaults.registerDefaults(registeredDefaults());
    forEach([this](auto& property) { property.value = stored(property); });
}

void Preferences::reload()
{
    assertMainThread();
    forEach([this](auto& property) { update(property, stored(property)); });
}

template <class Function> void Preferences::forEach(Function function)
{
    function(m_replacesAppleMenu);
    function(m_showsStatusItem);
    function(m_drawsRainbowAppleLogo);
    function(m_showIcons);
    function(m_showHiddenFiles);
    function(m_sortFoldersFirst);
    function(m_recentItemsLimit);
    function(m_maximumScanDepth);
    function(m_maximumItemsPerFolder);
    function(m_hotkeyPrescanDepth);
    function(m_remembersChoices);
    function(m_showCommandIcons);
}

template <class T> void Preferences::write(Property<T>& property, T value)
{
    assertMainThread();
    if (property.value == value || isLocked(keyOf(property.index)))
        return;
    property.value = value;
    m_defaults.keep(keyOf(property.index), value);
    m_registrar.changed(property.index);
}

template <class T> void Preferences::update(Property<T>& property, T value)
{
    if (std::exchange(property.value, value) != value)
        m_registrar.changed(property.index);
}

bool Preferences::stored(Property<bool> const& property) const { return m_defaults.boolForKey(keyOf(property.index)); }

std::int64_t Preferences::stored(Property<std::int64_t> const& property) const { return m_defaults.integerForKey(keyOf(property.index)); }

// Instantiated for the header's setters.
template void Preferences::write(Property<bool>&, bool);
template void Preferences::write(Property<std::int64_t>&, std::int64_t);

} // namespace zv
