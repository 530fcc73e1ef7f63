#pragma once

#include "app/menu/DynamicEntry.h"
#include "platform/files/FileSystem.h"

#include <string>
#include <string_view>

namespace zv {

/// What is known of a file before it is an entry of a list.
struct NamedFile {
    std::string_view name; ///< the bytes of the file system
    std::string_view localizedName; ///< empty where the name itself is shown
    FileTraits traits;
};

/// The text that the file is ordered by: its localized name, else its name as it is. The
/// ordering prefix of a name counts though another name is shown.
[[nodiscard]] std::string sortNameOf(NamedFile const& file);

/// Opens the file by its own path, be it a link or an alias; the traits are its target's.
[[nodiscard]] DynamicEntry fileEntry(Url url, NamedFile const& file);

/// Asks the file system what the file at `url` is. A file that is gone gives a plain entry. Any thread.
[[nodiscard]] DynamicEntry fileEntry(Url const& url, FileSystem const& files);

} // namespace zv
