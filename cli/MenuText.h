#pragma once

#include "app/menu/Menu.h"
#include "platform/System.h"
#include "platform/desk/TextMeasure.h"

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace zv {

/// The menu as an indented tree, shortcuts in a column at the right. Disabled entries stand in
/// parentheses, with the reason behind. `cells` measures in terminal cells.
[[nodiscard]] std::string menuAsText(Menu const& menu, TextMeasure const& cells, SystemKind system);

/// {"items": […]}, with the keys that the man page documents.
[[nodiscard]] nlohmann::ordered_json menuAsJson(Menu const& menu);

} // namespace zv
