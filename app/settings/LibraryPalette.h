#pragma once

#include "app/model/ItemLibrary.h"
#include "base/Observation.h"
#include "platform/lists/InstalledApplications.h"

#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// The palette of items to add, in groups, filtered by its search field.
class LibraryPalette {
public:
    struct Group {
        std::string title;
        std::vector<LibraryEntry const*> entries;
    };

    explicit LibraryPalette(std::vector<LibraryEntry> entries)
        : m_entries(std::move(entries))
    {
    }

    /// Groups in the order of their first entry, without empty ones. Every word of `search` must
    /// occur in the title, the description or the group, ignoring case and accents. The pointers
    /// hold until the applications are set. Reading this within withObservationTracking() observes
    /// them.
    [[nodiscard]] std::vector<Group> groups(std::string_view search = {}) const;
    /// The menu's items that the same search finds, in the menu's order; none for an empty search.
    [[nodiscard]] static std::vector<MenuItem const*> itemsFound(std::vector<MenuItem> const& items, std::string_view search);
    static constexpr std::size_t mostItemsFound = 100;
    /// Null when there is no such entry.
    [[nodiscard]] LibraryEntry const* entry(std::string_view id) const;

    /// Shows the applications in a group of their own at the end, sorted by name.
    void setApplications(std::vector<InstalledApplication> applications);

private:
    std::vector<LibraryEntry> m_entries;
    ObservationRegistrar m_registrar;
};

} // namespace zv
