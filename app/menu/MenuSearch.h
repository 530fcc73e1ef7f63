#pragma once

#include "app/menu/Menu.h"
#include "base/Translation.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace zv {

/// Finds entries of the submenus below an open menu by the typed text. Belongs to the front end that shows the menu, and
/// ends with its object. Main thread only, callback too.
class MenuSearch {
public:
    /// The matches in the menu itself that leave nothing to look for below it.
    static constexpr std::size_t enoughMatches = 8;
    /// Stands in place of the entries as long as nothing is found.
    static constexpr Sentence searching = mark("Searching…");
    /// The title of the search where it has a menu of its own.
    static constexpr Sentence title = mark("Search");

    struct Found {
        std::vector<MenuEntry> entries; ///< best first, each with its way
        bool isFinal = false; ///< nothing more is looked for
    };

    virtual ~MenuSearch() = default;

    /// Looks for the text from here on, of which the menu itself has that many matches. Answers for earlier texts do not
    /// come any more.
    virtual void find(std::string text, std::size_t matches) = 0;

    /// Called with each answer, the next one better than the last; the first may come within find().
    std::function<void(Found)> onFound;
};

} // namespace zv
