#include "platform/linux/session/DockSettings.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>

namespace zv {

namespace {

using State = ScriptOutcome::State;

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
ScriptOutcome changeDashToDock(ScriptPurpose purpose, SettingsKeys const& keys)
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

ScriptOutcome changePlank(ScriptPurpose purpose, SettingsKeys const& keys)
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
ScriptOutcome changeCinnamonPanel(ScriptPurpose purpose, SettingsKeys const& keys)
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

ScriptOutcome changeDock(ScriptPurpose purpose, DesktopAccess const& access, SettingsStore const& store, std::chrono::milliseconds timeout)
{
    Deadline const deadline(timeout);
    if (isPlankRunning(access, deadline)) {
        if (auto const keys = SettingsKeys::open("net.launchpad.plank.dock.settings", "/net/launchpad/plank/docks/dock1/", store))
            return changePlank(purpose, *keys);
    }
    if (access.desktop == Desktop::gnome) {
        auto const keys = SettingsKeys::open("org.gnome.shell.extensions.dash-to-dock", nullptr, store);
        return keys ? changeDashToDock(purpose, *keys) : outcome(false);
    }
    if (access.desktop == Desktop::cinnamon) {
        auto const keys = SettingsKeys::open("org.cinnamon", nullptr, store);
        return keys ? changeCinnamonPanel(purpose, *keys) : outcome(false);
    }
    if (access.desktop == Desktop::kde)
        return changePlasmaPanel(purpose, access, deadline);
    if (access.desktop == Desktop::xfce)
        return showPanelPreferences(purpose, access);
    return outcome(false);
}

} // namespace zv
