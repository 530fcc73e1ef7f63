#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace zv {

/// The notes, an RTF document, with each paragraph in the user's language. To translators <b> and <i> stand for bold and italic;
/// po/update reads the same paragraphs.
[[nodiscard]] std::vector<std::byte> notesInUsersLanguage(std::span<std::byte const> rtf);

} // namespace zv
