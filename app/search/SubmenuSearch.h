#pragma once

#include "app/menu/DynamicSubmenu.h"
#include "app/menu/MenuSearch.h"
#include "app/model/ChosenEntries.h"
#include "app/search/BestMatches.h"
#include "app/search/FolderWalk.h"
#include "base/Lifetime.h"
#include "platform/files/FileSystem.h"
#include "platform/time/Tasks.h"

#include <deque>
#include <memory>
#include <string>
#include <unordered_set>
#include <variant>
#include <vector>

namespace zv {

/// Searches the submenus below a menu. Groups are searched at once, lists are asked one in each turn of the main loop,
/// and folders are read in the background; what was found is kept for the next keys. Reading goes on step by step, also
/// for texts typed meanwhile, and every step improves the answer.
class SubmenuSearch : public MenuSearch {
public:
    /// The most entries that are shown.
    static constexpr std::size_t mostFound = 20;

    /// All outlive the search.
    struct Services {
        MenuBuilder const& builder;
        SubmenuSources const& sources;
        std::shared_ptr<FileSystem const> files;
        Tasks& tasks;
        ChosenEntries* chosen; ///< null where choices are not remembered
    };

    SubmenuSearch(Services services, Menu const& start);
    ~SubmenuSearch() override;
    SubmenuSearch(SubmenuSearch const&) = delete;
    SubmenuSearch& operator=(SubmenuSearch const&) = delete;

    void find(std::string text, std::size_t matches) override;

private:
    using Way = std::vector<std::string>;
    /// Entries of a list, of which items are made as they are found.
    struct Listed {
        std::vector<DynamicEntry> entries;
        std::int64_t depth;
    };

    void begin();
    void collect(Menu const& menu, Way const& way);
    void collectSource(DynamicMenuSource const& source, Way const& way);
    void collectFolder(DynamicMenuSource::Folder const& folder, Way const& way);
    void collectScript(Url const& script, Way const& way);
    void addGroup(std::vector<MenuEntry> entries, Way const& way);
    void addList(Listed listed, Way const& way);
    void addPlace(SearchPlace place, std::variant<std::vector<MenuEntry>, Listed> entries);
    void ask(DynamicMenuSource::List const& source, Way const& way);
    void askApplications(Way const& way);
    void askNextList();
    void goOn();
    void readOn();
    void rank();
    void answer(std::vector<SearchMatch> const& matches, bool isFinal);
    [[nodiscard]] bool isComplete() const { return !m_isReading && m_walk->isDone() && m_roots.empty() && m_unasked.empty(); }
    [[nodiscard]] MenuEntry entryFor(SearchMatch const& match) const;

    Services m_services;
    std::weak_ptr<Menu const> m_start;
    std::shared_ptr<FolderWalk> m_walk;
    std::shared_ptr<ChosenAges const> m_ages;
    std::vector<SearchPlaces> m_places;
    std::vector<std::variant<std::vector<MenuEntry>, Listed>> m_entries; ///< of the places without a folder, by number
    std::vector<SearchRoot> m_roots; ///< for the next step of the walk
    std::deque<std::function<void()>> m_unasked; ///< lists
    std::unordered_set<std::string> m_shown; ///< identities of the menu's own entries
    std::string m_text; ///< empty while nothing is looked for
    unsigned m_rankings = 0; ///< that were begun
    unsigned m_answered = 0; ///< the last whose answer counts no more
    bool m_hasBegun = false;
    bool m_hasRead = false;
    bool m_isReading = false;
    Lifetime m_lifetime;
};

} // namespace zv
