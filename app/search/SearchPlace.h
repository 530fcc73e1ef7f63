#pragma once

#include "base/Url.h"
#include "platform/files/FolderReader.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// Titles folded for the search, end to end in one block.
class FoldedTitles {
public:
    /// An empty title matches nothing.
    void add(std::string_view title);
    [[nodiscard]] std::size_t size() const { return m_ends.size(); }
    [[nodiscard]] std::string_view operator[](std::size_t index) const
    {
        auto const start = index == 0 ? 0 : m_ends[index - 1];
        return std::string_view(m_text).substr(start, m_ends[index] - start);
    }

private:
    std::string m_text;
    std::vector<std::size_t> m_ends;
};

/// The entries of one submenu, as they are searched: those of a folder, or others, of which only the titles are needed
/// here. Once made it never changes. Any thread.
struct SearchPlace {
    struct Folder {
        Url url;
        std::int64_t depth; ///< levels of folders that become submenus in it
        FolderContents contents; ///< in the order of the titles
    };

    std::vector<std::string> way; ///< the titles of the submenus that lead here
    FoldedTitles titles;
    std::optional<Folder> folder;
    std::vector<std::string> identities {}; ///< of the entries, without a folder
    std::size_t number = 0; ///< without a folder: of the list that has the entries
};

/// Places that were found together.
using SearchPlaces = std::shared_ptr<std::vector<SearchPlace> const>;

} // namespace zv
