#pragma once

#include "app/model/MenuItem.h"
#include "app/model/MenuStretch.h"
#include "base/Lifetime.h"
#include "base/Observation.h"
#include "platform/files/Resources.h"
#include "platform/files/UserDefaults.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zv {

/// Receives the whole list after every change. The list stays where it is as long as the store is there.
class MenuItemsSink {
public:
    virtual ~MenuItemsSink() = default;
    virtual void menuItemsChanged(std::vector<MenuItem> const& items) = 0;
};

/// Keeps the stored menu before a save overwrites it.
class MenuBackupSink {
public:
    virtual ~MenuBackupSink() = default;
    /// False when a readable menu need not be kept now; the store then makes no call.
    [[nodiscard]] virtual bool isDue() const = 0;
    /// Called before a save, with the value stored now; an unreadable one, and one that is replaced as a whole,
    /// comes even if no backup is due. The failure is a sentence for the log, written only when the save then succeeds.
    [[nodiscard]] virtual Result<void> menuWillBeOverwritten(PropertyList const& stored, bool isReadable) = 0;
};

/// Owns the user's menu and its persistence under the key "Menu". Every change refreshes
/// locations, saves and tells the hotkeys, in that order; the disk may have it a moment later. What a change costs
/// depends on what it changes, but for a look at each location. Reading items(),
/// unresolvedItemIDs() or lastSave() within withObservationTracking() observes them. Main thread only.
class MenuStore {
public:
    struct Services {
        UserDefaults& defaults;
        Resources const& resources;
        LocationServices locations;
    };

    /// Loads at once: the stored menu, else the default menu. All services outlive this.
    explicit MenuStore(Services services);
    MenuStore(MenuStore const&) = delete;
    MenuStore& operator=(MenuStore const&) = delete;

    [[nodiscard]] std::vector<MenuItem> const& items() const;
    [[nodiscard]] std::set<Uuid> const& unresolvedItemIDs() const;
    /// Finds the first match depth-first, or null. The pointer holds until the next change.
    [[nodiscard]] MenuItem const* find(Uuid const& id) const;

    /// `position` is clamped to the list; without one the items are appended.
    void insert(std::vector<MenuItem> items, std::optional<std::ptrdiff_t> position = std::nullopt);
    /// Top-level items only, as in replace() and move().
    void remove(std::set<Uuid> const& ids);
    void replace(Uuid const& id, MenuItem item);
    /// Moves the items at `offsets`, in their order, before the item that stood at `destination`
    /// (an offset of the list as it was).
    void move(std::set<std::size_t> const& offsets, std::size_t destination);
    /// Whether a change replaces what the user made: then the stored menu is kept even if a backup was made a
    /// moment ago.
    enum class Keeping { whenDue, always };
    /// Replaces `count` top-level items from `first` on, which are there. Returns what differs now: also the items whose
    /// locations were refreshed, and all where the menu is locked.
    MenuStretch replaceStretch(std::size_t first, std::size_t count, std::vector<MenuItem> items, Keeping keeping = Keeping::whenDue);
    /// Sets the whole menu, for an import or a restored menu.
    void replaceAll(std::vector<MenuItem> items, Keeping keeping = Keeping::whenDue);

    /// Writes the menu to the settings, as every change does. A failure is one line in the log.
    void save();

    /// True where an administrator fixed the menu: every change is undone at once, and lastSave() says so.
    [[nodiscard]] bool isLocked() const { return m_services.defaults.isLocked(defaultsKey); }

    /// A new user's menu: the administrator's, else the resource's, else the built-in eight items.
    [[nodiscard]] std::vector<MenuItem> defaultMenu() const;

    /// The program's own, whatever an administrator gave.
    [[nodiscard]] std::vector<MenuItem> programMenu() const;
    /// The menu that an administrator gave to all new users.
    [[nodiscard]] std::optional<std::vector<MenuItem>> givenMenu() const;
    /// True for a new user, who has no menu of their own yet, nor one that an administrator gave.
    [[nodiscard]] bool isNew() const { return !isLocked() && !m_services.defaults.object(defaultsKey); }

    /// Reloads after another process changed the stored menu; notifies the sink, saves nothing. An
    /// unreadable stored menu leaves the menu in memory as it is.
    void reload();

    /// The reason why the stored menu could not be read; empty when it could, or none was stored,
    /// or a save has replaced it.
    [[nodiscard]] std::optional<ReadFailure> const& loadFailure() const { return m_loadFailure; }
    /// The result of the last save.
    [[nodiscard]] Result<void> const& lastSave() const;
    /// "The menu could not be saved: …", when the last save failed; for the user.
    [[nodiscard]] std::optional<std::string> saveProblem() const;

    /// Both sinks outlive the store, or are reset to null.
    void setItemsSink(MenuItemsSink* sink) { m_itemsSink = sink; }
    void setBackupSink(MenuBackupSink* sink) { m_backupSink = sink; }

    static constexpr std::string_view defaultsKey = "Menu";

private:
    [[nodiscard]] std::optional<std::vector<MenuItem>> storedMenu();
    [[nodiscard]] std::optional<std::vector<MenuItem>> resourceMenu() const;
    void setItems(std::vector<MenuItem> items);
    MenuStretch refreshLocations(MenuStretch changed);
    MenuStretch didChange(MenuStretch changed, Keeping keeping = Keeping::whenDue);
    void load();
    void record(MenuStretch const& changed);
    void save(Keeping keeping);
    [[nodiscard]] Result<void> backUp(Keeping keeping);
    [[nodiscard]] std::optional<std::string> obstacle() const;
    void noteSaved(Result<void> saved);

    Services m_services;
    std::vector<MenuItem> m_items;
    PropertyListArray m_records; ///< of the items, as they are saved; made by the first save
    bool m_isWritable = false; ///< known of all records
    std::set<Uuid> m_unresolvedItemIDs;
    std::optional<ReadFailure> m_loadFailure;
    Result<void> m_lastSave;
    MenuItemsSink* m_itemsSink = nullptr;
    MenuBackupSink* m_backupSink = nullptr;
    ObservationRegistrar m_registrar;
    Lifetime m_lifetime;
};

} // namespace zv
