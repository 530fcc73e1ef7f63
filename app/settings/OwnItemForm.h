#pragma once

#include "app/model/OwnItems.h"
#include "platform/desk/Forms.h"

namespace zv {

/// The form for an item of the user's own; `item` is as it was, or empty but for its kind.
[[nodiscard]] Form ownItemForm(OwnItem const& item);
/// The item of a form that was filled in.
[[nodiscard]] OwnItem ownItemOf(OwnItem::Kind kind, std::vector<FormField> const& fields);

} // namespace zv
