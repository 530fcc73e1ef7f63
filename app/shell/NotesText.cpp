#include "app/shell/NotesText.h"

#include "base/Translation.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zv {

namespace {

struct Mark {
    std::string_view rtf, shown;
};

constexpr Mark marks[] = { { "\\b ", "<b>" }, { "\\b0 ", "</b>" }, { "\\i ", "<i>" }, { "\\i0 ", "</i>" }, { "\\u8230?", "…" } };

/// A line of the document: "\pard\sa60\fs26 ", the text, "\par".
struct Paragraph {
    std::string_view before, text, after;
};

std::optional<Paragraph> paragraphIn(std::string_view line)
{
    constexpr std::string_view bullet = "\\bullet  ", boldEnd = "\\b0\\par", end = "\\par";
    if (!line.starts_with("\\pard") || !line.ends_with(end) || line.find(' ') == std::string_view::npos)
        return std::nullopt;
    auto begin = line.find(' ') + 1;
    begin += line.substr(begin).starts_with(bullet) ? bullet.size() : 0;
    auto const tail = line.ends_with(boldEnd) ? boldEnd.size() : end.size();
    return Paragraph { line.substr(0, begin), line.substr(begin, line.size() - tail - begin), line.substr(line.size() - tail) };
}

std::string replaced(std::string text, std::string_view what, std::string_view with)
{
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

/// The document is ASCII: other characters are signed numbers of UTF-16.
std::string inAscii(std::string_view utf8)
{
    std::string text;
    auto const append = [&](char32_t unit) { text += "\\u" + std::to_string(static_cast<std::int16_t>(unit)) + "?"; };
    for (std::size_t i = 0; i < utf8.size();) {
        auto const lead = static_cast<unsigned char>(utf8[i++]);
        auto character = static_cast<char32_t>(lead < 0xE0 ? lead & 0x1F : lead < 0xF0 ? lead & 0x0F : lead & 0x07);
        if (lead < 0x80) {
            text += static_cast<char>(lead);
            continue;
        }
        for (; i < utf8.size() && (static_cast<unsigned char>(utf8[i]) & 0xC0) == 0x80; ++i)
            character = (character << 6) | (static_cast<unsigned char>(utf8[i]) & 0x3F);
        if (character >= 0x10000)
            append(0xD7C0 + (character >> 10));
        append(character >= 0x10000 ? 0xDC00 + (character & 0x3FF) : character);
    }
    return text;
}

std::string translated(std::string_view rtf)
{
    std::string english(rtf);
    for (auto const& mark : marks)
        english = replaced(std::move(english), mark.rtf, mark.shown);
    auto text = tr(english.c_str());
    if (text == english)
        return std::string(rtf);
    for (std::string_view const sign : { "\\", "{", "}" })
        text = replaced(std::move(text), sign, "\\" + std::string(sign));
    for (auto const& mark : marks)
        text = replaced(std::move(text), mark.shown, mark.rtf);
    return inAscii(text);
}

} // namespace

std::vector<std::byte> notesInUsersLanguage(std::span<std::byte const> rtf)
{
    std::string_view rest(reinterpret_cast<char const*>(rtf.data()), rtf.size());
    std::string text;
    while (!rest.empty()) {
        auto const line = rest.substr(0, rest.find('\n'));
        auto const paragraph = paragraphIn(line);
        text += paragraph ? std::string(paragraph->before) + translated(paragraph->text) + std::string(paragraph->after) : std::string(line);
        rest.remove_prefix(line.size());
        text += rest.empty() ? "" : "\n";
        rest.remove_prefix(rest.empty() ? 0 : 1);
    }
    auto const* const bytes = reinterpret_cast<std::byte const*>(text.data());
    return { bytes, bytes + text.size() };
}

} // namespace zv
