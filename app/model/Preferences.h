#pragma once

#include "base/Observation.h"
#include "base/Translation.h"
#include "platform/files/UserDefaults.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

namespace zv {

/// A stored setting: its key, its registered default, which also gives its type, and its purpose in
/// a few words.
struct PreferenceDescription {
    std::string_view key;
    std::variant<bool, std::int64_t> defaultValue;
    Sentence meaning;
};

/// The settings, cached in properties and written back on each change. Reading a property within
/// withObservationTracking() observes it. Main thread only.
class Preferences {
public:
    static constexpr std::string_view rememberChoicesKey = "RememberChoices";

    /// Registers the defaults, then reads each key once. `defaults` outlives this.
    explicit Preferences(UserDefaults& defaults);
    Preferences(Preferences const&) = delete;
    Preferences& operator=(Preferences const&) = delete;

    [[nodiscard]] bool replacesAppleMenu() const { return read(m_replacesAppleMenu); }
    [[nodiscard]] bool showsStatusItem() const { return read(m_showsStatusItem); }
    [[nodiscard]] bool drawsRainbowAppleLogo() const { return read(m_drawsRainbowAppleLogo); }
    [[nodiscard]] bool showIcons() const { return read(m_showIcons); }
    [[nodiscard]] bool showHiddenFiles() const { return read(m_showHiddenFiles); }
    [[nodiscard]] bool sortFoldersFirst() const { return read(m_sortFoldersFirst); }
    [[nodiscard]] std::int64_t recentItemsLimit() const { return read(m_recentItemsLimit); }
    [[nodiscard]] std::int64_t maximumScanDepth() const { return read(m_maximumScanDepth); }
    [[nodiscard]] std::int64_t maximumItemsPerFolder() const { return read(m_maximumItemsPerFolder); }
    [[nodiscard]] std::int64_t hotkeyPrescanDepth() const { return read(m_hotkeyPrescanDepth); }
    [[nodiscard]] bool remembersChoices() const { return read(m_remembersChoices); }
    [[nodiscard]] bool showCommandIcons() const { return read(m_showCommandIcons); }

    /// Setting the current value writes nothing and notifies nobody.
    void setReplacesAppleMenu(bool value) { write(m_replacesAppleMenu, value); }
    void setShowsStatusItem(bool value) { write(m_showsStatusItem, value); }
    void setDrawsRainbowAppleLogo(bool value) { write(m_drawsRainbowAppleLogo, value); }
    void setShowIcons(bool value) { write(m_showIcons, value); }
    void setShowHiddenFiles(bool value) { write(m_showHiddenFiles, value); }
    void setSortFoldersFirst(bool value) { write(m_sortFoldersFirst, value); }
    void setRecentItemsLimit(std::int64_t value) { write(m_recentItemsLimit, value); }
    void setMaximumScanDepth(std::int64_t value) { write(m_maximumScanDepth, value); }
    void setMaximumItemsPerFolder(std::int64_t value) { write(m_maximumItemsPerFolder, value); }
    void setHotkeyPrescanDepth(std::int64_t value) { write(m_hotkeyPrescanDepth, value); }
    void setRemembersChoices(bool value) { write(m_remembersChoices, value); }
    void setShowCommandIcons(bool value) { write(m_showCommandIcons, value); }

    /// Reads them all anew after another process changed the stored settings; notifies observers of
    /// the changed ones, writes nothing.
    void reload();

    /// True where an administrator fixed the setting: its setter does nothing.
    [[nodiscard]] bool isLocked(std::string_view key) const { return m_defaults.isLocked(key); }

    /// All of them, in the properties' order.
    [[nodiscard]] static std::span<PreferenceDescription const> descriptions();

private:
    /// A cached value; `index` is its place among the descriptions and its observed property.
    template <class T> struct Property {
        int index;
        T value {};
    };

    template <class T> [[nodiscard]] T read(Property<T> const& property) const
    {
        m_registrar.access(property.index);
        return property.value;
    }
    template <class T> void write(Property<T>& property, T value);
    template <class T> void update(Property<T>& property, T value);
    /// Calls the function with each property.
    template <class Function> void forEach(Function function);
    [[nodiscard]] bool stored(Property<bool> const& property) const;
    [[nodiscard]] std::int64_t stored(Property<std::int64_t> const& property) const;

    UserDefaults& m_defaults;
    ObservationRegistrar m_registrar;
    Property<bool> m_replacesAppleMenu { 0 };
    Property<bool> m_showsStatusItem { 1 };
    Property<bool> m_drawsRainbowAppleLogo { 2 };
    Property<bool> m_showIcons { 3 };
    Property<bool> m_showHiddenFiles { 4 };
    Property<bool> m_sortFoldersFirst { 5 };
    Property<std::int64_t> m_recentItemsLimit { 6 };
    Property<std::int64_t> m_maximumScanDepth { 7 };
    Property<std::int64_t> m_maximumItemsPerFolder { 8 };
    Property<std::int64_t> m_hotkeyPrescanDepth { 9 };
    Property<bool> m_remembersChoices { 10 };
    Property<bool> m_showCommandIcons { 11 };
};

} // namespace zv
