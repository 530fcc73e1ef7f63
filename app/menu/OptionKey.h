#pragma once

namespace zv {

/// Whether the Option key was held when the menu was about to open.
enum class OptionKey { released, held };

} // namespace zv
