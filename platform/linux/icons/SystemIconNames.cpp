#include "platform/linux/icons/SystemIconNames.h"

namespace zv {

/// Names of https://specifications.freedesktop.org/icon-naming-spec first, then names that themes have besides.
FileIconNames iconNamesOf(SystemIcon icon)
{
    switch (icon) {
    case SystemIcon::application:
        break;
    case SystemIcon::appStore:
        return { { "system-software-install", "applications-other", "package-x-generic" }, {}, IconShape::application };
    case SystemIcon::computer:
        return { { "computer", "video-display" }, {}, IconShape::computer };
    case SystemIcon::dock:
        return { { "user-desktop", "preferences-desktop", "desktop" }, {}, IconShape::computer };
    case SystemIcon::folder:
        return { { "folder", "inode-directory" }, {}, IconShape::folder };
    case SystemIcon::network:
        return { { "network-workgroup", "network-server", "folder-remote" }, {}, IconShape::network };
    case SystemIcon::networkLocation:
        return { { "preferences-system-network", "network-workgroup", "network-wired" }, {}, IconShape::network };
    case SystemIcon::shortcuts:
        return { { "preferences-desktop-keyboard-shortcuts", "preferences-desktop-keyboard", "input-keyboard" }, {}, IconShape::settings };
    case SystemIcon::softwareUpdate:
        return { { "system-software-update", "software-update-available", "system-software-install" }, {}, IconShape::settings };
    case SystemIcon::systemSettings:
        return { { "preferences-system", "preferences-desktop", "applications-system" }, {}, IconShape::settings };
    }
    return { {}, {}, IconShape::application };
}

} // namespace zv
