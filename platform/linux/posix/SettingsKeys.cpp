#include "platform/linux/posix/SettingsKeys.h"

#include <algorithm>

namespace zv {

namespace {

GObjectRef<GSettingsSchema> findSchema(char const* id, SettingsStore const& store)
{
    for (auto const& folder : store.schemaFolders) {
        GObjectRef<GSettingsSchemaSource> const source(g_settings_schema_source_new_from_directory(folder.c_str(), nullptr, FALSE, nullptr));
        if (auto* const schema = source ? g_settings_schema_source_lookup(source.get(), id, FALSE) : nullptr)
            return GObjectRef<GSettingsSchema>(schema);
    }
    return nullptr;
}

std::vector<std::string> wordsOf(char** list)
{
    GObjectRef<char*> const owned(list);
    std::vector<std::string> found;
    for (auto** word = list; *word; ++word)
        found.emplace_back(*word);
    return found;
}

} // namespace

SettingsStore SettingsStore::ofThisMachine(XdgDirectories const& directories)
{
    auto folders = directories.dataDirs;
    folders.insert(folders.begin(), directories.data);
    SettingsStore store;
    for (auto const& folder : folders)
        store.schemaFolders.push_back(folder + "/glib-2.0/schemas");
    for (auto const& folder : folders) {
        for (auto const* extension : { "dash-to-dock@micxgx.gmail.com", "ubuntu-dock@ubuntu.com" })
            store.schemaFolders.push_back(folder + "/gnome-shell/extensions/" + extension + "/schemas");
    }
    return store;
}

std::optional<SettingsKeys> SettingsKeys::open(char const* schemaId, char const* path, SettingsStore const& store)
{
    auto schema = findSchema(schemaId, store);
    if (!schema)
        return std::nullopt;
    auto* const settings = g_settings_new_full(schema.get(), store.backend, path);
    return SettingsKeys(std::move(schema), settings);
}

bool SettingsKeys::has(char const* key, char const* type) const
{
    if (!g_settings_schema_has_key(m_schema.get(), key))
        return false;
    GVariantRef const value(g_settings_get_value(m_settings.get(), key));
    return g_variant_is_of_type(value.get(), G_VARIANT_TYPE(type)) != FALSE;
}

std::vector<std::string> SettingsKeys::texts(char const* key) const { return wordsOf(g_settings_get_strv(m_settings.get(), key)); }

std::vector<std::string> SettingsKeys::listKeys() const
{
    auto keys = wordsOf(g_settings_schema_list_keys(m_schema.get()));
    std::erase_if(keys, [this](auto const& key) { return !has(key.c_str(), "as"); });
    return keys;
}

std::string SettingsKeys::summaryOf(char const* key) const
{
    auto* const described = g_settings_schema_get_key(m_schema.get(), key);
    auto const* const summary = g_settings_schema_key_get_summary(described);
    std::string text = summary ? summary : key;
    g_settings_schema_key_unref(described);
    return text;
}

bool SettingsKeys::set(char const* key, GVariant* value) const
{
    bool const isSet = g_settings_set_value(m_settings.get(), key, value) != FALSE;
    g_settings_sync();
    return isSet;
}

bool SettingsKeys::setTexts(char const* key, std::vector<std::string> const& values) const
{
    std::vector<char const*> list;
    for (auto const& value : values)
        list.push_back(value.c_str());
    return set(key, g_variant_new_strv(list.data(), static_cast<gssize>(list.size())));
}

void SettingsKeys::reset(char const* key) const
{
    g_settings_reset(m_settings.get(), key);
    g_settings_sync();
}

} // namespace zv
