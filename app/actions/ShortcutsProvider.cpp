#include "app/actions/ShortcutsProvider.h"

#include "base/Split.h"
#include "base/Translation.h"
#include "base/Uuid.h"
#include "platform/text/Text.h"

#include <utility>

namespace zv {

namespace {

std::string failureMessage(ToolResult const& result)
{
    constexpr std::string_view prefix = "Error: ";
    auto const text = withValidUtf8(result.errorOutput);
    auto message = trimmed(text);
    if (message.empty())
        return tr("The Shortcuts tool exited with status %1.", std::to_string(result.status));
    if (message.starts_with(prefix))
        message.remove_prefix(prefix.size());
    return std::string(message);
}

} // namespace

std::string ShortcutsProvider::Failure::description() const
{
    if (reason == Case::notInstalled)
        return tr("The Shortcuts command-line tool is not installed on this Mac.");
    if (reason == Case::timedOut)
        return tr("The Shortcuts service did not respond.");
    return message;
}

Result<std::string, ShortcutsProvider::Failure> ShortcutsProvider::runTool(
    std::vector<std::string> arguments, ToolOutput output, std::optional<std::chrono::milliseconds> timeout) const
{
    auto const result = m_runner->run({ m_path, std::move(arguments), output, timeout });
    if (result.end == ToolResult::End::notStarted)
        return zv::Failure { Failure { Failure::Case::notInstalled } };
    if (result.end == ToolResult::End::signalled)
        return zv::Failure { Failure { Failure::Case::timedOut } };
    if (result.status != 0)
        return zv::Failure { Failure { Failure::Case::failed, failureMessage(result) } };
    return withValidUtf8(result.output);
}

std::optional<Shortcut> ShortcutsProvider::parseLine(std::string_view line)
{
    auto const open = line.rfind(" (");
    if (!line.ends_with(')') || open == std::string_view::npos || open == 0)
        return std::nullopt;
    auto const id = line.substr(open + 2, line.size() - open - 3);
    if (!Uuid::parse(id))
        return std::nullopt;
    return Shortcut { std::string(id), std::string(line.substr(0, open)) };
}

Result<std::vector<Shortcut>, ShortcutsProvider::Failure> ShortcutsProvider::list(std::vector<std::string> arguments) const
{
    auto const output = runTool(std::move(arguments), ToolOutput::captured, listingTimeout);
    if (!output)
        return zv::Failure { output.error() };
    std::vector<Shortcut> shortcuts;
    for (auto const line : split(output.value(), '\n')) {
        if (auto shortcut = parseLine(line))
            shortcuts.push_back(std::move(*shortcut));
    }
    return shortcuts;
}

ShortcutsLibrary ShortcutsProvider::loadLibrary() const
{
    ShortcutsLibrary library;
    // Keeps the first failure, and all that could be listed.
    auto const listed = [&](std::vector<std::string> arguments) -> std::optional<std::vector<Shortcut>> {
        auto result = list(std::move(arguments));
        if (result)
            return std::move(result).value();
        if (!library.failure)
            library.failure = result.error().description();
        return std::nullopt;
    };

    auto ungrouped = listed({ "list", "--folder-name", "none", "--show-identifiers" });
    if (!ungrouped)
        return library;
    library.ungrouped = std::move(*ungrouped);
    for (auto& folder : listed({ "list", "--folders", "--show-identifiers" }).value_or(std::vector<Shortcut> {})) {
        auto shortcuts = listed({ "list", "--folder-name", folder.name, "--show-identifiers" });
        library.folders.push_back({ std::move(folder.id), std::move(folder.name), std::move(shortcuts).value_or(std::vector<Shortcut> {}) });
    }
    return library;
}

Result<void, ShortcutsProvider::Failure> ShortcutsProvider::run(std::string const& id) const
{
    auto const result = runTool({ "run", id }, ToolOutput::discarded, std::nullopt);
    if (!result)
        return zv::Failure { result.error() };
    return {};
}

} // namespace zv
