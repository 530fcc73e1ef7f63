#pragma once

#include "app/hotkeys/HotkeyCenter.h"
#include "app/hotkeys/HotkeyPrescan.h"
#include "app/menu/ListedFolderSink.h"
#include "app/model/MenuItem.h"
#include "base/Lifetime.h"
#include "platform/files/FileSystem.h"
#include "platform/files/FolderReader.h"
#include "platform/time/Tasks.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zv {

/// The pre-scan's readers; shared, as a scan that hangs outlives everything else.
struct PrescanServices {
    Tasks& tasks;
    std::shared_ptr<FolderReader const> reader;
    std::shared_ptr<FileSystem const> files;
};

/// The shortcuts that files carry in their names, folder by folder: learnt from the
/// pre-scan and from every folder that a submenu lists, and forgotten with their folder. Main thread only.
class FileHotkeys : public ListedFolderSink {
public:
    /// The center outlives this.
    FileHotkeys(PrescanServices services, HotkeyCenter& center);
    ~FileHotkeys() override;
    FileHotkeys(FileHotkeys const&) = delete;
    FileHotkeys& operator=(FileHotkeys const&) = delete;

    /// Replaces the folder's shortcuts. Installs nothing when they are the same: folders are listed
    /// far more often than renamed in.
    void folderListed(Url const& folder, std::vector<DynamicEntry> const& withHotkeys) override;
    /// Merges a pre-scan's result over the known shortcuts; an empty one installs nothing.
    void install(ShortcutsByFolder prescanned);
    /// Lets go of the file's shortcut, after it was renamed.
    void forget(Url const& file);
    /// Scans the folders off the main thread and installs the shortcuts found; asks for the folders only
    /// where the depth is at least 1. A running scan goes on; the last result to arrive wins.
    void prescan(std::function<std::vector<Url>()> const& roots, std::int64_t depth, HiddenFiles hiddenFiles);

private:
    /// False when the folder's shortcuts have not changed.
    bool replace(std::string const& folderPath, FolderShortcuts shortcuts);
    void installUnion();
    /// Forgets folders that were moved, removed, or pulled out with their medium. False when none was.
    bool forgetVanished();
    [[nodiscard]] bool hasVanished(std::string const& folderPath) const;
    [[nodiscard]] FolderShortcuts united() const;

    PrescanServices m_services;
    HotkeyCenter& m_center;
    ShortcutsByFolder m_byFolder; ///< only folders with shortcuts
    Lifetime m_lifetime;
};

/// The folders to scan for shortcuts: those of the visible file items, depth first, then the Items
/// folder; resolved, each once.
[[nodiscard]] std::vector<Url> foldersToPrescan(std::vector<MenuItem> const& items, Url const& itemsFolder, LocationServices services);

} // namespace zv
