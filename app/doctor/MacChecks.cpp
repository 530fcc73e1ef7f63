#include "app/doctor/MacChecks.h"

#include "app/doctor/HotkeyCheck.h"
#include "app/doctor/PermissionText.h"
#include "base/Translation.h"

#include <nlohmann/json.hpp>

#include <cstdint>

namespace zv {

namespace {

using Json = nlohmann::ordered_json;
using State = DoctorCheck::State;

DoctorCheck placeCheck(MacFindings const& found)
{
    switch (found.place) {
    case RelocationSource::translocated:
        return { tr("Place"), State::limited, tr("Zanthe Vell runs from the read-only copy that macOS makes of a download: it cannot be updated there."),
            tr("Move it to the Applications folder with the Finder, and start it there.") };
    case RelocationSource::diskImage:
        return { tr("Place"), State::limited, tr("Zanthe Vell runs from a disk image: it cannot be updated there, and ends when the image is ejected."),
            tr("Copy it to the Applications folder, and start it there.") };
    case RelocationSource::temporaryPlace:
        return { tr("Place"), State::limited, tr("Zanthe Vell runs from a place that is read-only or temporary."), tr("Copy it to the Applications folder.") };
    case RelocationSource::none:
        break;
    }
    if (found.isQuarantined)
        return { tr("Place"), State::limited, tr("Zanthe Vell is still in quarantine: macOS may start it from a read-only copy."),
            tr("Move it to another folder with the Finder, or run xattr -dr com.apple.quarantine on it.") };
    return { tr("Place"), State::ok, tr("Zanthe Vell lies where it can stay."), {} };
}

DoctorCheck menuBarCheck(MacFindings const& found)
{
    if (found.hasMenuBarFunctions)
        return { tr("Menu bar"), State::ok, tr("The window server tells whether the menu bar is hidden."), {} };
    return { tr("Menu bar"), State::limited, tr("The window server does not tell whether the menu bar is hidden: it is looked for among the windows alone."),
        tr("If a click in the corner opens the menu where no menu bar is, use the icon in the menu bar instead.") };
}

DoctorCheck shortcutsCheck(std::vector<std::string> const& refused)
{
    if (refused.empty())
        return hotkeyCheck(HotkeySupport::everywhere);
    return { tr("Hotkeys"), State::limited, tr("Another program or another entry has: %1.", listed(refused)),
        tr("“zanthe-vell hotkeys” tells whose they are to be.") };
}

DoctorCheck permissionCheck(Permission permission, PermissionState state)
{
    auto const text = permissionText(permission, state);
    auto const explanation = inSequence(text.sentence, text.reason);
    if (state != PermissionState::refused)
        return { text.name, State::ok, explanation, {} };
    return { text.name, State::limited, explanation, tr("System Settings has the switch, under Privacy & Security, %1.", text.name) };
}

DoctorCheck updateCheck(MacFindings const& found)
{
    if (found.hasUpdateFramework)
        return { tr("Updates"), State::ok, tr("The update framework is in the application."), {} };
    return { tr("Updates"), State::limited, tr("The application was built without the update framework: it does not look for new versions."),
        tr("Get a new version where this one came from.") };
}

DoctorCheck loginCheck(MacFindings const& found)
{
    using Status = LoginService::Status;
    switch (found.openAtLogin) {
    case Status::enabled:
        return { tr("Login"), State::ok, tr("Zanthe Vell opens at login."), {} };
    case Status::requiresApproval:
        return { tr("Login"), State::limited, tr("Zanthe Vell is switched off among the login items."),
            tr("System Settings has the switch, under General, Login Items.") };
    case Status::notRegistered:
    case Status::notFound:
        break;
    }
    return { tr("Login"), State::ok, tr("Zanthe Vell does not open at login, as nobody asked for it."), {} };
}

} // namespace

std::vector<DoctorCheck> macChecks(MacFindings const& found)
{
    std::vector<DoctorCheck> checks { placeCheck(found), menuBarCheck(found) };
    if (auto const& running = found.running) {
        checks.push_back(shortcutsCheck(running->refusedShortcuts));
        checks.push_back(permissionCheck(Permission::automation, running->automation));
        checks.push_back(permissionCheck(Permission::accessibility, running->accessibility));
    }
    checks.push_back(updateCheck(found));
    checks.push_back(loginCheck(found));
    return checks;
}

namespace {

/// The enumerator at the key; `otherwise` if missing or above `last`.
template <class Enumeration> Enumeration valueAt(Json const& json, char const* key, Enumeration last, Enumeration otherwise)
{
    auto const found = json.find(key);
    if (found == json.end() || !found->is_number_unsigned())
        return otherwise;
    auto const number = found->get<std::uint64_t>();
    return number <= static_cast<std::uint64_t>(last) ? static_cast<Enumeration>(number) : otherwise;
}

PermissionState permissionAt(Json const& json, char const* key) { return valueAt(json, key, PermissionState::notKnown, PermissionState::notAsked); }

bool flagAt(Json const& json, char const* key)
{
    auto const found = json.find(key);
    return found != json.end() && found->is_boolean() && found->get<bool>();
}

std::vector<std::string> textsAt(Json const& json, char const* key)
{
    std::vector<std::string> texts;
    for (auto const& each : json.value(key, Json::array())) {
        if (each.is_string())
            texts.push_back(each.get<std::string>());
    }
    return texts;
}

template <class Enumeration> unsigned numberOf(Enumeration value) { return static_cast<unsigned>(value); }

} // namespace

std::string encoded(MacFindings const& found)
{
    Json json { { "place", numberOf(found.place) }, { "quarantined", found.isQuarantined }, { "openAtLogin", numberOf(found.openAtLogin) },
        { "updateFramework", found.hasUpdateFramework }, { "menuBarFunctions", found.hasMenuBarFunctions } };
    if (auto const& running = found.running)
        json["running"] = { { "automation", numberOf(running->automation) }, { "accessibility", numberOf(running->accessibility) },
            { "refusedShortcuts", running->refusedShortcuts } };
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::optional<MacFindings> decodedMacFindings(std::string_view text)
{
    auto const json = Json::parse(text, nullptr, false);
    if (!json.is_object())
        return std::nullopt;
    MacFindings found;
    found.place = valueAt(json, "place", RelocationSource::temporaryPlace, RelocationSource::none);
    found.isQuarantined = flagAt(json, "quarantined");
    found.openAtLogin = valueAt(json, "openAtLogin", LoginService::Status::notFound, LoginService::Status::notRegistered);
    found.hasUpdateFramework = flagAt(json, "updateFramework");
    found.hasMenuBarFunctions = flagAt(json, "menuBarFunctions");
    auto const running = json.find("running");
    if (running != json.end() && running->is_object())
        found.running
            = MacProgramFindings { permissionAt(*running, "automation"), permissionAt(*running, "accessibility"), textsAt(*running, "refusedShortcuts") };
    return found;
}

} // namespace zv
