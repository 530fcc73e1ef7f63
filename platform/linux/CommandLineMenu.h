#pragma once

#include "app/model/ItemLocation.h"
#include "app/model/Preferences.h"
#include "cli/EntryChooser.h"
#include "cli/MenuSession.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Resources.h"
#include "platform/RunningProgram.h"
#include "platform/linux/XdgDirectories.h"

#include <iosfwd>
#include <memory>

namespace zv {

/// Menus of this machine without a display: the lists are as they are, icons are names, and
/// nothing is drawn.
class CommandLineMenu {
public:
    struct Services {
        Preferences const& preferences;
        LocationServices locations;
        FileSystem& files;
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
