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
#include <memory>
#include <string>
#include <vector>

namespace zv {

/// What the pre-scan reads with; shared, as a scan that hangs outlives everything else.
struct PrescanServices {
    Tasks& tasks;
    std::shared_ptr<FolderReader const> reader;
    std::shared_ptr<FileSystem const> files;
};

/// The shortcuts that files carry in their names, folder by folder: learnt from the
/// pre-scan and from every folder that a submenu lists. Main thread only.
class FileHotkeys : public ListedFolderSink {
public:
    /// The center outlives this.
    FileHotkeys(PrescanServices services, HotkeyCenter& center);

    /// Puts what the folder's entries carry in the place of what was known of it. When that
    /// is the same, nothing is installed: folders are listed far more often than renamed in.
    void folderListed(Url const& folder, std::vector<DynamicEntry> const& withHotkeys) override;
    /// Puts a pre-scan's result over what is known; an empty one installs nothing.
    void install(ShortcutsByFolder prescanned);
    /// Looks through the folders off the main thread and installs what it finds. A scan that
    /// runs already goes on; the last result to arrive is the one that stands.
    void prescan(std::vector<Url> roots, std::int64_t depth, HiddenFiles hiddenFiles);

private:
    /// False when the folder's shortcuts are what they were.
    bool replace(std::string const& folderPath, FolderShortcuts shortcuts);
    void installUnion();

    PrescanServices m_services;
    HotkeyCenter& m_center;
    ShortcutsByFolder m_byFolder; ///< only folders that have some
    Lifetime m_lifetime;
};

/// The folders to look through for shortcuts: those of the visible file items, depth first,
/// then the Items folder; without links, each once.
[[nodiscard]] std::vector<Url> foldersToPrescan(std::vector<MenuItem> const& items, Url const& itemsFolder, LocationServices services);

} // namespace zv
