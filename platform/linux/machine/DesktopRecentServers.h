#pragma once

#include "base/Lifetime.h"
#include "platform/linux/posix/XdgDirectories.h"
#include "platform/lists/RecentServers.h"
#include "platform/time/Tasks.h"

#include <string>

namespace zv {

/// Servers from the desktop's records: used remote files, the bookmarks of file dialogs, and the
/// list of servers.
class DesktopRecentServers : public RecentServers {
public:
    struct Files {
        std::string recentlyUsed; ///< recently-used.xbel
        std::string bookmarks; ///< gtk-3.0/bookmarks: "sftp://host/folder Label" a line
        std::string servers; ///< gtk-3.0/servers, an XBEL file too

        [[nodiscard]] static Files of(XdgDirectories const& user);
    };

    /// `tasks` outlives this.
    DesktopRecentServers(Tasks& tasks, Files files);
    void list(std::function<void(List)> done) override;

private:
    Tasks& m_tasks;
    Files m_files;
};

/// Nothing when at least one file exists and none can be read. Any thread.
[[nodiscard]] RecentServers::List readRecentServers(DesktopRecentServers::Files const& files);

} // namespace zv
