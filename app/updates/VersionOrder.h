#pragma once

#include <compare>
#include <string_view>

namespace zv {

/// Orders version texts as update feeds do. A text is cut into runs of digits, runs of letters, and
/// separators (anything else). Run by run, numbers compare by value and words by their letters;
/// where the kinds differ, a word is less than a number or a separator (a pre-release comes first)
/// and a separator is less than a number. Where one text ends, the longer one is greater (1.0.1
/// after 1.0), unless its next run is a word (1.0rc1 before 1.0), also behind one separator
/// (1.0-rc1, 1.0 beta).
[[nodiscard]] std::strong_ordering compareVersions(std::string_view a, std::string_view b);

} // namespace zv
