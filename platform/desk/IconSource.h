#pragma once

#include "base/Url.h"
#include "platform/desk/Image.h"
#include "platform/lists/InstalledApplications.h"

#include <string>

namespace zv {

/// Pictures by what they stand for, in whatever file a system keeps them.
enum class SystemIcon {
    application, ///< this program's own
    appStore,
    computer, ///< this computer, by its model where known
    dock,
    folder,
    forceQuit,
    lockScreen,
    logOut,
    network,
    networkLocation,
    recentItems,
    restart,
    runningApplications,
    shortcuts,
    shutDown,
    sleep,
    softwareUpdate,
    systemSettings,
    volumes,
};

/// The system's own pictures, 16 by 16 points. None of these waits for a disk or a
/// volume: a picture may get its contents after it was handed out. Main thread only.
class IconSource {
public:
    virtual ~IconSource() = default;
    /// The file's icon, or null when there is none.
    [[nodiscard]] virtual ImageRef fileIcon(Url const& file) = 0;
    /// The system's picture; null where it has none.
    [[nodiscard]] virtual ImageRef systemIcon(SystemIcon icon) = 0;
    /// The picture of a group of applications; null where the system has none.
    [[nodiscard]] virtual ImageRef categoryIcon(ApplicationCategory /*category*/) { return nullptr; }
    /// The theme's icon or the system's symbol of that name; `otherwise` where the system has none.
    [[nodiscard]] virtual ImageRef namedIcon(std::string const& name, ImageRef const& otherwise) = 0;
    /// The image in the file; `otherwise` where there is none.
    [[nodiscard]] virtual ImageRef imageIn(Url const& file, ImageRef const& otherwise) = 0;
};

} // namespace zv
