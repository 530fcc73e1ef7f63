#pragma once

#include "platform/linux/posix/SettingsKeys.h"
#include "tests/linux/PrivateBus.h"
#include "tests/linux/TemporaryFolder.h"

#define G_SETTINGS_ENABLE_BACKEND
#include <gio/gsettingsbackend.h>

#include <filesystem>

namespace zv::tests {

/// Settings (GSettings) in a file of the test's own, by these schemas.
class SettingsFile {
public:
    explicit SettingsFile(char const* schemas)
    {
        m_folder.write("schemas/test.gschema.xml", schemas);
        ChildProcess const compiler({ "/usr/bin/glib-compile-schemas", m_folder.path("schemas") });
        eventually([this] { return std::filesystem::exists(m_folder.path("schemas/gschemas.compiled")); });
        m_backend.reset(g_keyfile_settings_backend_new(m_folder.path("values").c_str(), "/", "root"));
        store = { { m_folder.path("nowhere"), m_folder.path("schemas") }, m_backend.get() };
    }
    /// The stored value as it stands in the file; "-" for none.
    [[nodiscard]] std::string stored(std::string const& group, std::string const& key) const
    {
        GObjectRef<GKeyFile> const file(g_key_file_new());
        if (!g_key_file_load_from_file(file.get(), m_folder.path("values").c_str(), G_KEY_FILE_NONE, nullptr))
            return "-";
        GString8 const value { g_key_file_get_value(file.get(), group.c_str(), key.c_str(), nullptr) };
        return value ? value.get() : "-";
    }

    SettingsStore store;

private:
    TemporaryFolder m_folder;
    GObjectRef<GSettingsBackend> m_backend;
};

} // namespace zv::tests
