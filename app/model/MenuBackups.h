#pragma once

#include "app/model/MenuStore.h"
#include "base/Observation.h"
#include "platform/files/FileSystem.h"
#include "platform/time/Clock.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// A kept menu.
struct MenuBackup {
    Url file;
    WallTime time;
    bool isReadable = true; ///< false for a copy of an unreadable menu

    friend bool operator==(MenuBackup const&, MenuBackup const&) = default;
};

/// The time for a file's name, in UTC, so that names sort by time whatever the local clock does.
[[nodiscard]] std::string fileTimeText(WallTime time);

/// Keeps the last ten menus as files, each made before a save changes the stored menu, at most one
/// a minute. An unreadable menu is always kept. A backup is a menu document: reading one is
/// importing it. Main thread only.
class MenuBackups : public MenuBackupSink {
public:
    struct Services {
        FileSystem& files;
        Clock const& clock;
    };

    static constexpr std::size_t maximumCount = 10; ///< of each sort, readable or not
    static constexpr std::chrono::minutes minimumDistance { 1 };

    /// `folder` is made when the first backup needs it. The services outlive this.
    MenuBackups(Services services, Url folder);

    /// Newest first; observed when read within withObservationTracking(). Those that lie in the future were made while the clock was ahead: they come last.
    [[nodiscard]] std::vector<MenuBackup> list() const;

    [[nodiscard]] bool isDue() const override;
    [[nodiscard]] Result<void> menuWillBeOverwritten(PropertyList const& stored, bool isReadable) override;

private:
    [[nodiscard]] Result<void> write(PropertyList const& stored, Url const& file);
    [[nodiscard]] Url freeName(WallTime time, bool isReadable) const;
    void removeOldest(bool isReadable);

    Services m_services;
    Url m_folder;
    mutable std::optional<WallTime> m_newest;
    ObservationRegistrar m_observers;
};

} // namespace zv
