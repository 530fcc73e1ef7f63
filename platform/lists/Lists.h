#pragma once

#include "platform/lists/InstalledApplications.h"
#include "platform/lists/NetworkInterfaces.h"
#include "platform/lists/RecentFiles.h"
#include "platform/lists/RecentServers.h"
#include "platform/lists/RunningApplications.h"
#include "platform/lists/SettingsPanes.h"
#include "platform/lists/Volumes.h"

namespace zv {

/// The sources from which lists are computed when they open.
struct Lists {
    RecentFiles& recentFiles;
    RunningApplications& runningApplications;
    Volumes& volumes;
    RecentServers& recentServers;
    NetworkInterfaces& networkInterfaces;
    SettingsPanes& settingsPanes;
    ApplicationFolders* applicationFolders; ///< null where a folder of applications is listed like any other
};

} // namespace zv
