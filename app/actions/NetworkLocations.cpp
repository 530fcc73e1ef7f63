#include "app/actions/NetworkLocations.h"

#include "base/Split.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <functional>

namespace zv {

namespace {

std::string_view withoutMarks(std::string_view text)
{
    constexpr std::string_view marks = " *\t";
    auto const first = text.find_first_not_of(marks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(marks) - first + 1);
}

bool containsWhiteSpace(std::string_view text)
{
    auto const graphemes = firstGraphemes(text, text.size());
    return std::any_of(graphemes.begin(), graphemes.end(), isWhiteSpace);
}

} // namespace

std::optional<NetworkLocations::Location> NetworkLocations::parseLine(std::string_view line)
{
    auto const text = trimmed(line);
    auto const open = text.rfind('(');
    auto const close = text.rfind(')');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open)
        return std::nullopt;
    auto const name = text.substr(open + 1, close - open - 1);
    auto const id = withoutMarks(text.substr(0, text.find('(')));
    if (name.empty() || id.empty() || containsWhiteSpace(id))
        return std::nullopt;
    return Location { std::string(id), std::string(name), text.starts_with('*') };
}

std::vector<NetworkLocations::Location> NetworkLocations::list() const
{
    std::vector<Location> locations;
    auto const output = runTool("-n");
    if (!output)
        return locations;
    for (auto const line : split(*output, '\n')) {
        if (auto location = parseLine(line))
            locations.push_back(std::move(*location));
    }
    return locations;
}

bool NetworkLocations::select(std::string const& id) const { return runTool(id).has_value(); }

std::optional<std::string> NetworkLocations::runTool(std::string const& argument) const
{
    auto result = m_runner->run({ m_path, { argument }, ToolOutput::capturedWithErrors });
    bool const isUsable = result.end == ToolResult::End::exited && result.status == 0 && isValidUtf8(result.output);
    return isUsable ? std::optional(std::move(result.output)) : std::nullopt;
}

std::size_t hashValue(NetworkLocations::Location const& location)
{
    std::hash<std::string> const hash;
    return (hash(location.id) * 31 + hash(location.name)) * 31 + (location.isCurrent ? 1 : 0);
}

} // namespace zv
