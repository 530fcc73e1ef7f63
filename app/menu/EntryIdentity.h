#pragma once

#include "app/menu/DynamicEntry.h"
#include "app/menu/EntrySubject.h"
#include "app/model/MenuItem.h"
#include "base/Url.h"

#include <string>

namespace zv {

/// The text by which an entry is known again, wherever it is listed: the file's URL where it stands for one, else the id
/// of the entry or of the user's item.
[[nodiscard]] inline std::string identityOf(Url const& file) { return file.toString(); }
[[nodiscard]] inline std::string identityOf(DynamicEntry const& entry) { return entry.fileURL ? identityOf(*entry.fileURL) : entry.id; }
[[nodiscard]] inline std::string identityOf(MenuItem const& item) { return item.id.toString(); }
/// Empty where nothing is known of the entry.
[[nodiscard]] inline std::string identityOf(EntrySubject const& subject)
{
    if (subject.entry)
        return identityOf(*subject.entry);
    return subject.item ? subject.item->toString() : std::string();
}

} // namespace zv
