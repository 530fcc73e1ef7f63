#pragma once

#include "platform/SystemKind.h"
#include "platform/desk/Desk.h"
#include "platform/files/Files.h"
#include "platform/lists/Lists.h"
#include "platform/menubar/Presence.h"
#include "platform/program/Home.h"
#include "platform/session/Session.h"
#include "platform/time/Time.h"

/// The system, handed over whole: seams in groups, each group filled by name where a system's
/// own classes are put together. A consumer of one seam takes that seam; a consumer of several
/// of a group takes the group. The groups hold references to objects that outlive their holders
/// and are used on the main thread, as each seam says of itself.
///
/// A new seam: a header in the folder of its group, a class in a room of each system, a member of the group,
/// filled in by LinuxSystem or LinuxFrontEnd and by MacSystem or MacFrontEnd, and a fake in
/// tests/fakes, which FakeSystem fills in. The compiler names each place that is forgotten.
namespace zv {

/// The groups that need no display: the program and its commands share them.
struct System {
    SystemKind kind;
    Files files;
    Time time;
    Lists lists;
    Session session;
    Places places;
};

/// The groups that need a display: the program has them, its commands have not.
struct Surface {
    Desk desk;
    Looks looks;
    Presence presence;
    Windows windows;
    Home home;
};

} // namespace zv
