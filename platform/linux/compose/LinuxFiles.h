#pragma once

#include "platform/files/Files.h"
#include "platform/linux/entries/DesktopEntry.h"
#include "platform/linux/files/BundleResources.h"
#include "platform/linux/files/LinuxBookmarks.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/files/SymlinkAliasFiles.h"
#include "platform/linux/machine/SystemClock.h"
#include "platform/linux/posix/ProgramPlaces.h"
#include "platform/linux/store/PlistUserDefaults.h"
#include "platform/program/Home.h"

#include <memory>

namespace zv {

/// The stored things of this machine and their places: all that the simplest command takes. Needs
/// neither display nor event loop.
class LinuxFiles {
public:
    explicit LinuxFiles(Environment environment);
    LinuxFiles(LinuxFiles const&) = delete;
    LinuxFiles& operator=(LinuxFiles const&) = delete;

    [[nodiscard]] Files files();
    [[nodiscard]] Places const& places() const { return m_places; }
    [[nodiscard]] Environment const& environment() const { return m_places.environment; }
    [[nodiscard]] ProgramPlaces const& paths() const { return m_paths; }
    [[nodiscard]] DesktopAudience const& audience() const { return m_audience; }
    [[nodiscard]] StartTrust const& trust() const { return m_trust; }
    [[nodiscard]] PlistUserDefaults& defaults() { return m_defaults; }
    [[nodiscard]] SystemClock& clock() { return m_clock; }

private:
    ProgramPlaces m_paths;
    DesktopAudience m_audience;
    StartTrust m_trust;
    Places m_places;
    PlistUserDefaults m_defaults;
    BundleResources m_resources;
    std::shared_ptr<LinuxFileSystem> m_disk;
    LinuxBookmarks m_bookmarks;
    SymlinkAliasFiles m_aliases;
    std::shared_ptr<FolderReader const> m_folders;
    SystemClock m_clock;
};

} // namespace zv
