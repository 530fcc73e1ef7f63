#include "platform/linux/session/DockSettings.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>

namespace zv {

namespace {

using State = ScriptOutcome::State;

using SchemaRef = GObjectRef<GSettingsSchema>;

SchemaRef findSchema(char const* id, DockStore const& store)
{
    auto* const system = store.systemSchemas;
    if (auto* const schema = system ? g_settings_schema_source_lookup(system, id, TRUE) : nullptr)
        return SchemaRef(schema);
    for (auto const& folder : store.schemaFolders) {
        GObjectRef<GSettingsSchemaSource> const source(g_settings_schema_source_new_from_directory(folder.c_str(), system, FALSE, nullptr));
        if (auto* const schema = source ? g_settings_schema_source_lookup(source.get(), id, FALSE) : nullptr)
            return SchemaRef(schema);
    }
    return nullptr;
}

/// A dock's settings; keys that its version lacks are neither read nor written.
class DockKeys {
public:
    static std::optional<DockKeys> open(char const* schemaId, char const* path, DockStore const& store)
    {
        auto schema = findSchema(schemaId, store);
        if (!schema)
            return std::nullopt;
        auto* const settings = g_settings_new_full(schema.get(), store.backend, path);
        return DockKeys(std::move(schema), settings);
    }

    [[nodiscard]] bool has(char const* key, char const* type) const
    {
        if (!g_settings_schema_has_key(m_schema.get(), key))
            return false;
        GVariantRef const value(g_settings_get_value(m_settings.get(), key));
        return g_variant_is_of_type(value.get(), G_VARIANT_TYPE(type)) != FALSE;
    }
    [[nodiscard]] bool boolean(char const* key) const { return g_settings_get_boolean(m_settings.get(), key) != FALSE; }
    [[nodiscard]] std::string text(char const* key) const { return taken(g_settings_get_string(m_settings.get(), key)); }
    [[nodiscard]] std::vector<std::string> texts(char const* key) const
    {
        std::vector<std::string> found;
        GObjectRef<char*> const list(g_settings_get_strv(m_settings.get(), key));
        for (auto** item = list.get(); *item; ++item)
            found.emplace_back(*item);
        return found;
    }
    /// Sets the key and flushes it to the store. False when it is not writable.
    [[nodiscard]] bool set(char const* key, GVariant* value) const
    {
        bool const isSet = g_settings_set_value(m_settings.get(), key, value) != FALSE;
        g_settings_sync();
        return isSet;
    }
    [[nodiscard]] bool toggle(char const* key) const { return has(key, "b") && set(key, g_variant_new_boolean(boolean(key) ? FALSE : TRUE)); }
    [[nodiscard]] bool setTexts(char const* key, std::vector<std::string> const& values) const
    {
        std::vector<char const*> list;
        for (auto const& value : values)
            list.push_back(value.c_str());
        return set(key, g_variant_new_strv(list.data(), static_cast<gssize>(list.size())));
    }

private:
    DockKeys(SchemaRef schema, GSettings* settings)
        : m_schema(std::move(schema))
        , m_settings(settings)
    {
    }
    SchemaRef m_schema;
    GObjectRef<GSettings> m_settings;
};

/// "left", "bottom", "right"; null for purposes that set no edge.
char const* edgeOf(ScriptPurpose purpose)
{
    switch (purpose) {
    case ScriptPurpose::dockLeft:
        return "left";
    case ScriptPurpose::dockBottom:
        return "bottom";
    case ScriptPurpose::dockRight:
        return "right";
    default:
        return nullptr;
    }
}

ScriptOutcome outcome(bool isDone) { return { isDone ? State::succeeded : State::noEquivalent }; }

/// Keys: schemas/org.gnome.shell.extensions.dash-to-dock.gschema.xml of https://github.com/micheleg/dash-to-dock
ScriptOutcome changeDashToDock(ScriptPurpose purpose, DockKeys const& keys)
{
    if (auto const* const edge = edgeOf(purpose)) {
        std::string name = edge;
        std::ranges::transform(name, name.begin(), [](char c) { return static_cast<char>(c - 'a' + 'A'); });
        return outcome(keys.has("dock-position", "s") && keys.set("dock-position", g_variant_new_string(name.c_str())));
    }
    if (purpose != ScriptPurpose::dockHiding || !keys.has("dock-fixed", "b"))
        return outcome(false);
    // A fixed dock never hides; "autohide" counts only once it is not fixed.
    if (keys.boolean("dock-fixed") && keys.has("autohide", "b") && !keys.set("autohide", g_variant_new_boolean(TRUE)))
        return outcome(false);
    return outcome(keys.toggle("dock-fixed"));
}

ScriptOutcome changePlank(ScriptPurpose purpose, DockKeys const& keys)
{
    if (auto const* const edge = edgeOf(purpose))
        return outcome(keys.has("position", "s") && keys.set("position", g_variant_new_string(edge)));
    if (purpose == ScriptPurpose::dockMagnification)
        return outcome(keys.toggle("zoom-enabled"));
    if (!keys.has("hide-mode", "s"))
        return outcome(false);
    return outcome(keys.set("hide-mode", g_variant_new_string(keys.text("hide-mode") == "none" ? "auto" : "none")));
}

/// Settings such as "1:0:bottom" (panel, monitor, edge) and "1:false" (panel, hiding). The first panel is the dock.
ScriptOutcome changeCinnamonPanel(ScriptPurpose purpose, DockKeys const& keys)
{
    auto const* const edge = edgeOf(purpose);
    auto const* const key = edge ? "panels-enabled" : "panels-autohide";
    if (purpose == ScriptPurpose::dockMagnification || !keys.has(key, "as"))
        return outcome(false);
    auto panels = keys.texts(key);
    auto const colon = panels.empty() ? std::string::npos : panels.front().rfind(':');
    if (colon == std::string::npos)
        return outcome(false);
    auto const value = panels.front().substr(colon + 1);
    panels.front().replace(colon + 1, std::string::npos, edge ? edge : value == "false" ? "true" : "false");
    return outcome(keys.setTexts(key, panels));
}

/// Plasma's panels by script: https://develop.kde.org/docs/plasma/scripting/api
ScriptOutcome changePlasmaPanel(ScriptPurpose purpose, DesktopAccess const& access, Deadline const& deadline)
{
    auto const* const edge = edgeOf(purpose);
    if (purpose == ScriptPurpose::dockMagnification)
        return outcome(false);
    std::string const script
        = edge ? "panels()[0].location = '" + std::string(edge) + "'" : "var p = panels()[0]; p.hiding = p.hiding == 'autohide' ? 'none' : 'autohide'";
    auto const bus = BusConnection::open(access.buses.session, deadline);
    if (!bus)
        return outcome(false);
    auto const reply
        = bus->call({ "org.kde.plasmashell", "/PlasmaShell", "org.kde.PlasmaShell" }, "evaluateScript", g_variant_new("(s)", script.c_str()), deadline);
    if (!reply && reply.error().kind != BusFailure::Kind::noService)
        return { State::failed, std::nullopt, reply.error().message };
    return outcome(reply.ok());
}

/// Opens the panel's own window of settings, which no other program changes.
ScriptOutcome showPanelPreferences(ScriptPurpose purpose, DesktopAccess const& access)
{
    return outcome(purpose != ScriptPurpose::dockMagnification && access.programs->start({ "xfce4-panel", "--preferences" }));
}

bool isPlankRunning(DesktopAccess const& access, Deadline const& deadline)
{
    auto const bus = BusConnection::open(access.buses.session, deadline);
    return bus && bus->hasOwner("net.launchpad.plank", deadline);
}

} // namespace

DockStore DockStore::ofThisMachine(XdgDirectories const& directories)
{
    auto folders = directories.dataDirs;
    folders.insert(folders.begin(), directories.data);
    DockStore store;
    store.systemSchemas = g_settings_schema_source_get_default();
    for (auto const& folder : folders) {
        for (auto const* extension : { "dash-to-dock@micxgx.gmail.com", "ubuntu-dock@ubuntu.com" })
            store.schemaFolders.push_back(folder + "/gnome-shell/extensions/" + extension + "/schemas");
    }
    return store;
}

ScriptOutcome changeDock(ScriptPurpose purpose, DesktopAccess const& access, DockStore const& store, std::chrono::milliseconds timeout)
{
    Deadline const deadline(timeout);
    if (isPlankRunning(access, deadline)) {
        if (auto const keys = DockKeys::open("net.launchpad.plank.dock.settings", "/net/launchpad/plank/docks/dock1/", store))
            return changePlank(purpose, *keys);
    }
    if (access.desktop == Desktop::gnome) {
        auto const keys = DockKeys::open("org.gnome.shell.extensions.dash-to-dock", nullptr, store);
        return keys ? changeDashToDock(purpose, *keys) : outcome(false);
    }
    if (access.desktop == Desktop::cinnamon) {
        auto const keys = DockKeys::open("org.cinnamon", nullptr, store);
        return keys ? changeCinnamonPanel(purpose, *keys) : outcome(false);
    }
    if (access.desktop == Desktop::kde)
        return changePlasmaPanel(purpose, access, deadline);
    if (access.desktop == Desktop::xfce)
        return showPanelPreferences(purpose, access);
    return outcome(false);
}

} // namespace zv
