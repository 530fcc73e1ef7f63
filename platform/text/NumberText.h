#pragma once

#include <cstdint>
#include <string>

namespace zv {

/// A whole number as the user's language writes it. Each system has one file of its own behind this. Any thread.
[[nodiscard]] std::string localizedNumber(std::int64_t value);

} // namespace zv
