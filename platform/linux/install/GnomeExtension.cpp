#include "platform/linux/install/GnomeExtension.h"

#include "platform/linux/posix/GObjects.h"

#include <gio/gio.h>

#include <algorithm>
#include <filesystem>
#include <memory>

namespace zv {

namespace {

constexpr char const* schemaName = "org.gnome.shell";
constexpr char const* key = "enabled-extensions";
constexpr char const* identifiers[] = { "zanthe-vell-43@zanthevell.org", "zanthe-vell-45@zanthevell.org" };

using Words = std::unique_ptr<char*, decltype(&g_strfreev)>;

/// Null where GNOME Shell is not installed.
GObjectRef<GSettings> shellSettings()
{
    auto* const source = g_settings_schema_source_get_default();
    auto* const schema = source ? g_settings_schema_source_lookup(source, schemaName, TRUE) : nullptr;
    if (!schema)
        return nullptr;
    g_settings_schema_unref(schema);
    return GObjectRef<GSettings>(g_settings_new(schemaName));
}

std::vector<std::string> switchedOn(GSettings* settings)
{
    Words const words(g_settings_get_strv(settings, key), g_strfreev);
    std::vector<std::string> names;
    for (char** word = words.get(); *word; ++word)
        names.emplace_back(*word);
    return names;
}

bool contains(std::vector<std::string> const& names, std::string const& name) { return std::ranges::find(names, name) != names.end(); }

} // namespace

std::vector<std::string> GnomeExtension::installed() const
{
    std::vector<std::string> found;
    std::error_code ignored;
    for (auto const* identifier : identifiers) {
        auto const isIn = [&](auto const& folder) { return std::filesystem::exists(folder + "/gnome-shell/extensions/" + identifier, ignored); };
        if (std::ranges::any_of(m_options.dataFolders, isIn))
            found.emplace_back(identifier);
    }
    return found;
}

DesktopExtension::State GnomeExtension::state() const
{
    auto const settings = shellSettings();
    auto const ours = installed();
    if (!settings || ours.empty())
        return State::missing;
    auto const names = switchedOn(settings.get());
    if (std::ranges::none_of(ours, [&](auto const& each) { return contains(names, each); }))
        return State::off;
    return m_options.isRunning() ? State::on : State::onFromNextLogin;
}

bool GnomeExtension::switchTo(bool on)
{
    auto const settings = shellSettings();
    if (!settings)
        return false;
    auto names = switchedOn(settings.get());
    auto const ours = installed();
    std::erase_if(names, [&](auto const& name) { return contains(ours, name); });
    if (on)
        names.insert(names.end(), ours.begin(), ours.end());
    std::vector<char const*> words;
    for (auto const& name : names)
        words.push_back(name.c_str());
    words.push_back(nullptr);
    bool const isWritten = g_settings_set_strv(settings.get(), key, words.data()) != FALSE;
    g_settings_sync();
    return isWritten;
}

} // namespace zv
