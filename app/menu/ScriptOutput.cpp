#include "app/menu/ScriptOutput.h"

#include "app/menu/DisplayText.h"
#include "app/model/FinderPopName.h"
#include "platform/text/Text.h"

#include <charconv>
#include <map>

namespace zv {

namespace {

using Parameters = std::map<std::string, std::string>;

std::string joined(std::vector<std::string_view> const& graphemes)
{
    std::string text;
    for (auto const& grapheme : graphemes)
        text += grapheme;
    return text;
}

/// The value at the front of `rest`, which is cut behind it: a word, or what stands between quotes.
std::string takeValue(std::string_view& rest)
{
    char const quote = rest.empty() ? ' ' : rest.front();
    bool const isQuoted = quote == '"' || quote == '\'';
    if (isQuoted)
        rest.remove_prefix(1);
    auto const end = std::min(isQuoted ? rest.find(quote) : rest.find_first_of(" \t|"), rest.size());
    auto value = std::string(rest.substr(0, end));
    rest.remove_prefix(std::min(end + (isQuoted ? 1 : 0), rest.size()));
    return value;
}

Parameters parametersIn(std::string_view rest)
{
    Parameters found;
    while (found.size() < ScriptLimits::parameters) {
        auto const start = std::min(rest.find_first_not_of(" \t|"), rest.size());
        rest.remove_prefix(start);
        auto const equals = rest.find('=');
        if (equals == std::string_view::npos)
            break;
        auto const key = lowerCased(withValidUtf8(trimmed(rest.substr(0, equals))));
        rest.remove_prefix(equals + 1);
        found[key] = takeValue(rest);
    }
    return found;
}

bool isTrue(Parameters const& parameters, char const* key)
{
    auto const found = parameters.find(key);
    return found != parameters.end() && lowerCased(withValidUtf8(found->second)) == "true";
}

std::string textOf(Parameters const& parameters, char const* key)
{
    auto const found = parameters.find(key);
    return found == parameters.end() ? std::string() : found->second;
}

std::vector<std::string> argumentsIn(Parameters const& parameters)
{
    std::map<int, std::string> numbered;
    for (auto const& [key, value] : parameters) {
        int number = 0;
        auto const digits = std::string_view(key).substr(key.starts_with("param") ? 5 : key.size());
        auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (!digits.empty() && error == std::errc() && end == digits.data() + digits.size())
            numbered[number] = value;
    }
    std::vector<std::string> arguments;
    for (auto& [number, value] : numbered)
        arguments.push_back(std::move(value));
    return arguments;
}

std::string titleOf(std::string_view text, Parameters const& parameters)
{
    auto title = displayText(trimmed(text));
    auto limit = ScriptLimits::titleLength;
    std::size_t length = 0;
    auto const given = textOf(parameters, "length");
    if (std::from_chars(given.data(), given.data() + given.size(), length).ec == std::errc() && length > 0)
        limit = std::min(limit, length);
    auto const shown = firstGraphemes(title, limit + 1);
    return shown.size() <= limit ? title : joined(firstGraphemes(title, limit)) + "…";
}

ScriptEntry entryFor(std::string_view line)
{
    auto const bar = std::min(line.find('|'), line.size());
    auto const parameters = parametersIn(line.substr(bar));
    ScriptEntry entry;
    entry.title = titleOf(line.substr(0, bar), parameters);
    entry.href = textOf(parameters, "href");
    entry.program = textOf(parameters, parameters.contains("bash") ? "bash" : "shell");
    entry.arguments = argumentsIn(parameters);
    entry.inTerminal = !parameters.contains("terminal") || isTrue(parameters, "terminal");
    entry.refreshes = isTrue(parameters, "refresh");
    entry.isDisabled = isTrue(parameters, "disabled");
    entry.isAlternate = isTrue(parameters, "alternate");
    entry.color = parseTextColor(textOf(parameters, "color"));
    auto const key = textOf(parameters, parameters.contains("key") ? "key" : "shortcut");
    if (isValidUtf8(key))
        entry.key = parseShortcutText(key);
    return entry;
}

/// How far the line is put in; what is left of it begins with its title.
std::size_t takeDepth(std::string_view& line)
{
    std::size_t depth = 0;
    while (line.starts_with("--") && line != "---" && depth < ScriptLimits::depth) {
        line.remove_prefix(2);
        ++depth;
    }
    return depth;
}

/// The list that a line at that depth belongs to: the nearest there is.
std::vector<ScriptEntry>& listAt(std::vector<ScriptEntry>& entries, std::size_t depth)
{
    auto* list = &entries;
    for (; depth > 0 && !list->empty() && !list->back().isSeparator; --depth)
        list = &list->back().children;
    return *list;
}

} // namespace

std::vector<ScriptEntry> parseScriptOutput(std::string_view output)
{
    std::vector<ScriptEntry> entries;
    for (std::size_t count = 0; !output.empty() && count < ScriptLimits::lines; ++count) {
        auto const end = output.find('\n');
        auto line = output.substr(0, std::min(end, ScriptLimits::lineLength));
        output.remove_prefix(end == std::string_view::npos ? output.size() : end + 1);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (trimmed(line).empty())
            continue;
        auto const depth = takeDepth(line);
        auto& list = listAt(entries, depth);
        if (trimmed(line) == "---")
            list.emplace_back().isSeparator = true;
        else
            list.push_back(entryFor(line));
    }
    return entries;
}

} // namespace zv
