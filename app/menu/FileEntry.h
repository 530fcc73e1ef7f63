#pragma once

#include "app/menu/DynamicEntry.h"
#include "platform/files/FileSystem.h"

#include <string>
#include <string_view>

namespace zv {

/// The facts that a file's entry is made of.
struct NamedFile {
    std::string_view name; ///< bytes of the file system
    std::string_view localizedName; ///< empty where the name itself is shown
    FileTraits traits;
};

/// The file's sort text: its localized name, else its name. The ordering prefix of a name counts
/// even if another name is shown.
[[nodiscard]] std::string sortNameOf(NamedFile const& file);

/// The title that the file's entry has; empty for a separator.
[[nodiscard]] std::string titleOf(NamedFile const& file);

/// Opens the file by its own path, even a link or an alias; the traits are the target's.
[[nodiscard]] DynamicEntry fileEntry(Url url, NamedFile const& file);
/// The same for a folder's list, which is in order already and tells its files apart by `fileURL`: without `id` and `sortName`.
[[nodiscard]] DynamicEntry listedEntry(Url url, NamedFile const& file);

/// The name of a volume by its label, which may be empty: the same in lists and in the Items folder.
[[nodiscard]] std::string volumeTitle(Url const& root, std::string const& label);

/// The tooltip for a file that cannot be opened; nothing for others.
[[nodiscard]] std::optional<std::string> reasonFor(FileFault fault);

/// Asks the file system for the traits of `url`. A file that is gone gives a plain entry. Any thread.
[[nodiscard]] DynamicEntry fileEntry(Url const& url, FileSystem const& files);

} // namespace zv
