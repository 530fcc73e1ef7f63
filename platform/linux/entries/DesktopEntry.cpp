#include "platform/linux/entries/DesktopEntry.h"

#include "base/Split.h"
#include "platform/linux/posix/WholeFiles.h"

#include <algorithm>
#include <glib.h>

namespace zv {

namespace {

constexpr std::string_view mainGroup = "[Desktop Entry]";
constexpr std::size_t pieceSize = 8192;
constexpr std::size_t mostBytes = std::size_t { 512 } << 10;

std::string_view withoutBlanks(std::string_view text)
{
    auto const isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Resolves "\s", "\n", "\t", "\r" and "\\", the escapes of key files.
std::string unescaped(std::string_view value)
{
    static constexpr std::string_view letters = "sntr\\";
    static constexpr std::string_view meanings = " \n\t\r\\";
    std::string plain;
    for (std::size_t i = 0; i < value.size(); ++i) {
        auto const letter = value[i] == '\\' && i + 1 < value.size() ? letters.find(value[i + 1]) : std::string_view::npos;
        if (letter == std::string_view::npos) {
            plain += value[i];
            continue;
        }
        plain += meanings[letter];
        ++i;
    }
    return plain;
}

/// Removes and returns the text's first line.
std::string_view nextLine(std::string_view& text)
{
    auto const end = std::min(text.find('\n'), text.size());
    auto const line = withoutBlanks(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

bool contains(std::vector<std::string> const& list, std::string const& wanted) { return std::find(list.begin(), list.end(), wanted) != list.end(); }

} // namespace

std::vector<std::string> userLanguages()
{
    std::vector<std::string> languages;
    for (auto const* const* language = g_get_language_names(); *language; ++language)
        languages.emplace_back(*language);
    return languages;
}

std::vector<std::string> desktopsNamed(std::string_view colonSeparated)
{
    auto const names = split(colonSeparated, ':');
    return { names.begin(), names.end() };
}

DesktopEntry::DesktopEntry(std::string_view text)
{
    bool isInMainGroup = false;
    while (!text.empty()) {
        auto const line = nextLine(text);
        if (line.starts_with('[')) {
            m_isEnded = isInMainGroup;
            if (m_isEnded)
                break;
            isInMainGroup = line == mainGroup;
            continue;
        }
        auto const equals = line.find('=');
        if (isInMainGroup && !line.starts_with('#') && equals != std::string_view::npos)
            m_lines.emplace_back(withoutBlanks(line.substr(0, equals)), withoutBlanks(line.substr(equals + 1)));
    }
}

/// The last of duplicate keys counts.
std::optional<std::string_view> DesktopEntry::value(std::string_view key) const
{
    auto const found = std::find_if(m_lines.rbegin(), m_lines.rend(), [key](auto const& line) { return line.first == key; });
    return found == m_lines.rend() ? std::nullopt : std::optional(found->second);
}

std::string DesktopEntry::text(std::string_view key) const { return unescaped(value(key).value_or("")); }

std::string DesktopEntry::translated(std::string_view key, std::vector<std::string> const& languages) const
{
    for (auto const& language : languages) {
        if (auto const found = value(std::string(key) + "[" + language + "]"))
            return unescaped(*found);
    }
    return text(key);
}

bool DesktopEntry::flag(std::string_view key) const
{
    auto const found = value(key);
    return found == "true" || found == "1";
}

std::vector<std::string> DesktopEntry::list(std::string_view key) const
{
    std::vector<std::string> items;
    for (auto const item : split(value(key).value_or(""), ';'))
        items.push_back(unescaped(withoutBlanks(item)));
    return items;
}

bool DesktopEntry::isMeantFor(std::vector<std::string> const& desktops) const
{
    auto const only = list("OnlyShowIn");
    auto const never = list("NotShowIn");
    for (auto const& desktop : desktops) {
        if (contains(only, desktop))
            return true;
        if (contains(never, desktop))
            return false;
    }
    return !has("OnlyShowIn");
}

bool DesktopEntry::isListed(std::vector<std::string> const& desktops) const { return !flag("NoDisplay") && !flag("Hidden") && isMeantFor(desktops); }

std::string readDesktopEntry(int folder, char const* name)
{
    std::string text;
    if (auto const file = openPlainFile(name, folder)) {
        auto const take = [&text](std::string_view piece) {
            text += piece;
            return text.size() < mostBytes && !DesktopEntry(text).isEnded();
        };
        (void)readInPieces(*file, take, pieceSize);
    }
    return text;
}

} // namespace zv
