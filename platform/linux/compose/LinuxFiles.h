#pragma once

#include "platform/files/Files.h"
#include "platform/linux/files/BundleResources.h"
#include "platform/linux/files/LinuxBookmarks.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/files/SymlinkAliasFiles.h"
#include "platform/linux/machine/SystemClock.h"
#include "platform/linux/posix/XdgDirectories.h"
#include "platform/linux/store/PlistUserDefaults.h"
#include "platform/program/Home.h"

#include <memory>
#include <string>
#include <vector>

namespace zv {

/// What is stored on this machine, and where: all that the simplest command takes. Needs
/// neither display nor event loop.
class LinuxFiles {
public:
    LinuxFiles();
    LinuxFiles(LinuxFiles const&) = delete;
    LinuxFiles& operator=(LinuxFiles const&) = delete;

    [[nodiscard]] Files files();
    [[nodiscard]] Places const& places() const { return m_places; }
    [[nodiscard]] XdgDirectories const& directories() const { return m_directories; }
    [[nodiscard]] Url settingsFolder() const;
    [[nodiscard]] PlistUserDefaults& defaults() { return m_defaults; }
    [[nodiscard]] SystemClock& clock() { return m_clock; }

private:
    XdgDirectories m_directories;
    Places m_places;
    PlistUserDefaults m_defaults;
    BundleResources m_resources;
    std::shared_ptr<LinuxFileSystem> m_disk;
    LinuxBookmarks m_bookmarks;
    SymlinkAliasFiles m_aliases;
    std::shared_ptr<FolderReader const> m_folders;
    SystemClock m_clock;
};

/// Names another folder of resources that comes first, for those who try out texts, menus or feeds.
inline constexpr char const* resourcesVariable = "ZANTHE_VELL_RESOURCES";

} // namespace zv
