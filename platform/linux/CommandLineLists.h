#pragma once

#include "app/menu/DynamicSubmenu.h"
#include "app/menu/FolderListings.h"
#include "app/menu/MenuIcon.h"
#include "app/model/Preferences.h"
#include "platform/RunningApplications.h"
#include "platform/Timers.h"
#include "platform/linux/ApplicationIndex.h"
#include "platform/linux/DesktopAccess.h"
#include "platform/linux/XdgDirectories.h"

#include <functional>
#include <memory>

namespace zv {

/// The lists of what this machine has, and the names of icons, for menus that are printed.
class CommandLineLists {
public:
    struct Services {
        Tasks& tasks;
        Timers& timers;
        Preferences const& preferences;
        FolderListings& folders;
        ApplicationCatalog& applications;
        std::function<void(Url const&)> launch; ///< of an application that runs without a window to bring to the front
    };

    /// The services outlive this.
    CommandLineLists(Services const& services, DesktopAccess const& access, XdgDirectories const& directories);
    ~CommandLineLists();

    [[nodiscard]] RunningApplications& runningApplications();
    [[nodiscard]] MenuIcons& icons();
    /// Those two are not lists of the machine's: they are handed in.
    [[nodiscard]] DynamicLists with(SubmenuFiller& shortcuts, SubmenuFiller& locations);

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace zv
