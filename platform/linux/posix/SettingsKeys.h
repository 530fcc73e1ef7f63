#pragma once

#include "platform/linux/posix/GObjects.h"
#include "platform/linux/posix/XdgDirectories.h"

#include <optional>
#include <string>
#include <vector>

namespace zv {

/// A store of settings (GSettings). The default is the user's own.
struct SettingsStore {
    std::vector<std::string> schemaFolders; ///< of compiled schemas, the first that has one counts
    GSettingsBackend* backend = nullptr; ///< null for the user's own; not owned

    /// The user's own store, with the system's schemas and those of shell extensions.
    [[nodiscard]] static SettingsStore ofThisMachine(XdgDirectories const& directories);
};

/// One schema's settings; keys that its version lacks are neither read nor written.
class SettingsKeys {
public:
    /// `path` is null for a schema that has its own. Nothing where the schema is not installed.
    [[nodiscard]] static std::optional<SettingsKeys> open(char const* schemaId, char const* path, SettingsStore const& store);

    [[nodiscard]] bool has(char const* key, char const* type) const;
    [[nodiscard]] bool boolean(char const* key) const { return g_settings_get_boolean(m_settings.get(), key) != FALSE; }
    [[nodiscard]] std::string text(char const* key) const { return taken(g_settings_get_string(m_settings.get(), key)); }
    [[nodiscard]] std::vector<std::string> texts(char const* key) const;
    /// The keys of the type "as", …
    [[nodiscard]] std::vector<std::string> listKeys() const;
    /// … and what a key is for, in the user's language; its name where the schema does not say.
    [[nodiscard]] std::string summaryOf(char const* key) const;

    /// Sets the key and flushes it to the store. False when it is not writable.
    [[nodiscard]] bool set(char const* key, GVariant* value) const;
    [[nodiscard]] bool toggle(char const* key) const { return has(key, "b") && set(key, g_variant_new_boolean(boolean(key) ? FALSE : TRUE)); }
    [[nodiscard]] bool setText(char const* key, std::string const& value) const { return set(key, g_variant_new_string(value.c_str())); }
    [[nodiscard]] bool setTexts(char const* key, std::vector<std::string> const& values) const;
    void reset(char const* key) const;

private:
    using SchemaRef = GObjectRef<GSettingsSchema>;

    SettingsKeys(SchemaRef schema, GSettings* settings)
        : m_schema(std::move(schema))
        , m_settings(settings)
    {
    }
    SchemaRef m_schema;
    GObjectRef<GSettings> m_settings;
};

} // namespace zv
