#include "platform/linux/session/ScreenLock.h"

#include "platform/linux/session/LoginManager.h"

#include <algorithm>
#include <vector>

namespace zv {

namespace {

/// Screen savers, the common name last, as some own it without locking. Sources: GNOME's is
/// data/dbus-interfaces/org.gnome.ScreenSaver.xml of https://gitlab.gnome.org/GNOME/gnome-shell;
/// Cinnamon's, MATE's and Xfce's have the same method; the common one is that of
/// https://invent.kde.org/plasma/kscreenlocker.
constexpr BusObject savers[] = {
    { "org.gnome.ScreenSaver", "/org/gnome/ScreenSaver", "org.gnome.ScreenSaver" },
    { "org.cinnamon.ScreenSaver", "/org/cinnamon/ScreenSaver", "org.cinnamon.ScreenSaver" },
    { "org.mate.ScreenSaver", "/", "org.mate.ScreenSaver" },
    { "org.xfce.ScreenSaver", "/", "org.xfce.ScreenSaver" },
    { "org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver", "org.freedesktop.ScreenSaver" },
    { "org.freedesktop.ScreenSaver", "/ScreenSaver", "org.freedesktop.ScreenSaver" },
};

struct Locker {
    std::optional<Desktop> desktop; ///< none: every desktop
    std::vector<std::string> command;
};
/// Programs that lock by themselves, where the login service only passes the wish on, heard or not. The desktop's own first.
Locker const lockers[]
    = { { Desktop::xfce, { "xflock4" } }, { std::nullopt, { "xsecurelock" } }, { std::nullopt, { "i3lock" } }, { std::nullopt, { "slock" } } };

bool lockByProgram(DesktopAccess const& access)
{
    return std::ranges::any_of(
        lockers, [&](auto const& locker) { return isForDesktop(locker.desktop, access.desktop) && access.programs->start(locker.command); });
}

bool hasLocker(DesktopAccess const& access)
{
    return std::ranges::any_of(
        lockers, [&](auto const& locker) { return isForDesktop(locker.desktop, access.desktop) && access.programs->has(locker.command.front()); });
}

/// Cinnamon's saver takes a message, the others nothing.
GVariant* argumentsFor(BusObject const& saver) { return std::string_view(saver.service) == "org.cinnamon.ScreenSaver" ? g_variant_new("(s)", "") : nullptr; }

bool lockBySaver(DesktopAccess const& access, Deadline const& deadline)
{
    auto const bus = BusConnection::open(access.buses.session, deadline);
    if (!bus)
        return false;
    for (auto const& saver : savers) {
        bool const isThere = bus->hasOwner(saver.service, deadline);
        if (isThere && bus->call(saver, "Lock", argumentsFor(saver), deadline, nullptr, BusConnection::Starting::forbidden))
            return true;
    }
    return false;
}

Result<void, BusFailure> lockByLogin(DesktopAccess const& access, Deadline const& deadline)
{
    auto const bus = BusConnection::open(access.buses.system, deadline);
    if (!bus)
        return Failure { BusFailure { BusFailure::Kind::noService, {} } };
    auto const* const session = access.sessionId.empty() ? "auto" : access.sessionId.c_str();
    auto const reply = bus->call(loginManager, "LockSession", g_variant_new("(s)", session), deadline);
    if (!reply)
        return Failure { reply.error() };
    return {};
}

} // namespace

ScriptOutcome lockScreen(DesktopAccess const& access, std::chrono::milliseconds timeout)
{
    // Separate deadlines: a saver that hangs must not leave the screen open.
    if (lockBySaver(access, Deadline(timeout)) || lockByProgram(access))
        return {};
    auto const locked = lockByLogin(access, Deadline(timeout));
    if (locked)
        return {};
    if (access.programs->start({ "loginctl", "lock-session" }))
        return {};
    if (locked.error().kind == BusFailure::Kind::noService)
        return { ScriptOutcome::State::noEquivalent };
    return { ScriptOutcome::State::failed, std::nullopt, locked.error().message };
}

DesktopFindings::ScreenLock screenLockOf(DesktopAccess const& access, std::chrono::milliseconds timeout)
{
    using enum DesktopFindings::ScreenLock;
    Deadline const deadline(timeout);
    auto const session = BusConnection::open(access.buses.session, deadline);
    if (session && std::ranges::any_of(savers, [&](auto const& known) { return session->hasOwner(known.service, deadline); }))
        return saver;
    if (hasLocker(access))
        return command;
    auto const system = BusConnection::open(access.buses.system, deadline);
    return system && system->canReach(loginManager.service, deadline) ? loginService : none;
}

} // namespace zv
