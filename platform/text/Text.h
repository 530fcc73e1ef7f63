#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Text in UTF-8. "Character" means what a reader takes for one: a grapheme cluster.
/// Bytes that are not UTF-8 never crash: they count as one replacement character each.
/// Each system has one file of its own behind this header. Any thread.
namespace zv {

/// True when every byte belongs to well-formed UTF-8.
[[nodiscard]] bool isValidUtf8(std::string_view text);
/// The text with each ill-formed sequence replaced by U+FFFD.
[[nodiscard]] std::string withValidUtf8(std::string_view text);

[[nodiscard]] std::size_t graphemeCount(std::string_view text);
/// The text when it is exactly one character, else nothing.
[[nodiscard]] std::optional<std::string_view> singleGrapheme(std::string_view text);
/// The leading `count` characters (views into `text`), fewer when it is shorter.
[[nodiscard]] std::vector<std::string_view> firstGraphemes(std::string_view text, std::size_t count);

/// Locale-independent full case maps.
[[nodiscard]] std::string lowerCased(std::string_view text);
[[nodiscard]] std::string upperCased(std::string_view text);

/// Without Unicode white space (line breaks included) at both ends.
[[nodiscard]] std::string_view trimmed(std::string_view text);
[[nodiscard]] bool isWhiteSpace(std::string_view grapheme);
/// True for one character of the general categories letter, number, punctuation or symbol.
[[nodiscard]] bool isLetterNumberPunctuationOrSymbol(std::string_view grapheme);
/// Lower-cased and without accents, for searching as people type.
[[nodiscard]] std::string foldedForSearch(std::string_view text);

/// Negative, zero or positive as in a file manager: case is ignored, digit runs compare by
/// value, in the user's language.
[[nodiscard]] int localizedStandardCompare(std::string_view a, std::string_view b);
/// What a long list compares in the place of texts, by compareSortKeys. Where two keys differ
/// within their first eight bytes, those alone tell the order.
[[nodiscard]] std::string sortKey(std::string_view text);
/// The same bytes at the end of a block that many keys share.
void appendSortKey(std::string& block, std::string_view text);
/// Negative, zero or positive: what localizedStandardCompare says of the texts.
[[nodiscard]] int compareSortKeys(std::string_view a, std::string_view b);

} // namespace zv
