#pragma once

#include "platform/linux/entries/ApplicationEntry.h"

#include "base/Lifetime.h"
#include "platform/time/Tasks.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zv {

/// The application entries of the search path, an earlier folder's before a later one's of
/// the same id. Never changes once it is made. Any thread.
class ApplicationIndex {
public:
    /// Reads every entry below the folders.
    [[nodiscard]] static ApplicationIndex read(std::vector<std::string> const& folders, DesktopAudience const& audience = {});

    [[nodiscard]] std::vector<ApplicationEntry> const& entries() const { return m_entries; }
    /// Finds by id, with or without ".desktop". Each find function returns null without a match.
    [[nodiscard]] ApplicationEntry const* find(std::string_view id) const;
    /// The entry that a window of this class belongs to: by its StartupWMClass, else by its
    /// id, in any case, else by the last part of a reversed domain name.
    [[nodiscard]] ApplicationEntry const* findByWindowClass(std::string_view windowClass) const;
    /// Finds by the name of the program that the entry starts; of several, the entry that gives it the fewest arguments.
    [[nodiscard]] ApplicationEntry const* findByProgram(std::string_view program) const;
    /// Finds by the entry's file, a path free of links, wherever below the folders it lies: one that an earlier
    /// folder's entry of the same id stands for is that entry.
    [[nodiscard]] ApplicationEntry const* findByFile(std::string const& path) const;

    /// The desktops of the audience that the index was read for.
    [[nodiscard]] std::vector<std::string> const& desktops() const { return m_desktops; }

    /// The folders that were read, each with its time of change.
    using Fingerprint = std::vector<std::pair<std::string, std::int64_t>>;
    [[nodiscard]] bool isCurrent() const;

private:
    using Names = std::map<std::string, std::size_t, std::less<>>;

    void addFolder(std::string const& folder, std::string const& idPrefix, DesktopAudience const& audience, int depth);
    void add(ApplicationEntry entry);
    void addProgram(ApplicationEntry const& entry, std::size_t place);
    [[nodiscard]] ApplicationEntry const* at(Names const& names, std::string_view name) const;

    std::vector<std::string> m_desktops;
    std::vector<ApplicationEntry> m_entries;
    Names m_byId; ///< lower case, without ".desktop"
    Names m_byWindowClass; ///< lower case
    Names m_byProgram;
    Names m_byFile; ///< the paths free of links, those of entries that an earlier one stands for, too
    Names m_byShortId; ///< the last part of "org.gnome.Nautilus", lower case
    Fingerprint m_fingerprint;
};

/// Keeps an index that is read off the main thread, and again when the folders have changed. Main
/// thread only, callbacks too.
class ApplicationCatalog {
public:
    using Index = std::shared_ptr<ApplicationIndex const>;

    /// `tasks` outlives this.
    ApplicationCatalog(Tasks& tasks, std::vector<std::string> folders, DesktopAudience audience);
    /// Calls `use` once: before it returns when the index is at hand, else later, unless the
    /// catalog is gone by then.
    void withIndex(std::function<void(Index)> use);

private:
    Tasks& m_tasks;
    std::vector<std::string> m_folders;
    DesktopAudience m_audience;
    Index m_index;
    std::vector<std::function<void(Index)>> m_waiting;
    Lifetime m_lifetime;
};

} // namespace zv
