#pragma once

#include "app/model/ItemLocation.h"
#include "app/model/Preferences.h"
#include "cli/EntryChooser.h"
#include "cli/MenuSession.h"
#include "platform/files/Resources.h"
#include "platform/linux/posix/XdgDirectories.h"
#include "platform/program/RunningProgram.h"
#include "platform/time/Clock.h"

#include <iosfwd>
#include <memory>

namespace zv {

/// The command line's menus over this machine.
class CommandLineMenu {
public:
    struct Services {
        Preferences const& preferences;
        LocationServices locations;
        Resources const& resources;
        Clock const& clock;
        RunningProgram& program;
        std::ostream& out;
    };

    /// The services outlive this.
    CommandLineMenu(Services const& services, XdgDirectories const& directories);
    ~CommandLineMenu();

    [[nodiscard]] MenuSession& session();
    [[nodiscard]] EntryChooser& chooser();

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace zv
