#pragma once

#include "app/model/FolderChoices.h"
#include "platform/desk/Forms.h"

namespace zv {

/// The form for the order and choice of a folder item.
[[nodiscard]] Form folderForm(FolderChoices const& choices);
[[nodiscard]] FolderChoices folderChoicesIn(std::vector<FormField> const& fields);
/// "By date changed, reversed, *.pdf"; "As in General" where nothing is chosen.
[[nodiscard]] std::string summaryOf(FolderChoices const& choices);

} // namespace zv
