#pragma once

#include "base/Lifetime.h"
#include "platform/linux/apps/ApplicationIndex.h"
#include "platform/linux/apps/LaunchLog.h"
#include "platform/linux/files/MountTable.h"
#include "platform/lists/RecentFiles.h"
#include "platform/time/Clock.h"
#include "platform/time/Tasks.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zv {

enum class UsedItemType { application, folder, document };

/// A file, folder or application that was used, and when.
struct UsedItem {
    std::string path;
    std::int64_t lastUsed = 0; ///< seconds since 1970
    UsedItemType type = UsedItemType::document;
};

/// The items used since `since`, from the desktop's list and our own launches: files and folders
/// by their last visit, the applications that visited them by theirs. One item a path, newest
/// first, not checked for existence. Any thread.
[[nodiscard]] std::vector<UsedItem> usedItems(
    std::string const& recentlyUsedFile, std::vector<LaunchLog::Launch> const& launches, ApplicationIndex const& applications, std::int64_t since);
/// The first `limit` items that exist, or that lie where existence is not checked. Any thread.
[[nodiscard]] std::vector<RecentFile> existingItems(std::vector<UsedItem> const& items, MountTable const& mounts, std::size_t limit);

/// Recent files from the desktop's list of recently used things.
class DesktopRecentFiles : public RecentFiles {
public:
    struct Services {
        Tasks& tasks;
        Clock const& clock;
        ApplicationCatalog& applications;
    };

    /// The services outlive this and its searches.
    DesktopRecentFiles(Services services, std::string recentlyUsedFile, LaunchLog launches);
    [[nodiscard]] std::unique_ptr<RecentFilesSearch> find(RecentFilesQuestion const& question, Done done) override;

private:
    Services m_services;
    std::string m_recentlyUsedFile;
    LaunchLog m_launches;
};

} // namespace zv
