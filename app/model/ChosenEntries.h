#pragma once

#include "app/model/Preferences.h"
#include "base/Lifetime.h"
#include "base/Observation.h"
#include "platform/files/FileSystem.h"
#include "platform/time/Tasks.h"

#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace zv {

/// How long ago entries were chosen, in choices. Any thread.
class ChosenAges {
public:
    static constexpr std::size_t never = std::numeric_limits<std::size_t>::max();

    /// `identities` of entries (app/menu/EntryIdentity.h), the last choice first.
    explicit ChosenAges(std::vector<std::string> const& identities = {});

    [[nodiscard]] std::size_t ageOf(std::string const& identity) const;
    [[nodiscard]] bool hasSomethingIn(Url const& folder) const;

private:
    std::unordered_map<std::string, std::size_t> m_ages;
    std::unordered_set<std::string> m_folders; ///< URLs of chosen files' folders
};

/// Remembers which entries were chosen last, for the search alone, in a file that only the user can read. Nothing is
/// kept, and the file removed, while the user does not want it. Main thread only.
class ChosenEntries {
public:
    static constexpr std::size_t capacity = 200;

    struct Services {
        Preferences const& preferences;
        std::shared_ptr<FileSystem> files;
        Tasks& tasks;
    };

    /// The services outlive this.
    ChosenEntries(Services services, Url file);
    ChosenEntries(ChosenEntries const&) = delete;
    ChosenEntries& operator=(ChosenEntries const&) = delete;

    void add(std::string identity);
    [[nodiscard]] std::shared_ptr<ChosenAges const> ages();

private:
    void load();
    void save();
    void follow();

    Services m_services;
    Url m_file;
    std::vector<std::string> m_identities; ///< the last choice first
    bool m_isLoaded = false;
    bool m_isSaving = false;
    bool m_isChanged = false; ///< since the running save began
    Observation m_tracking;
    Lifetime m_lifetime;
};

} // namespace zv
