#pragma once

#include "app/actions/Shortcuts.h"
#include "base/Result.h"
#include "platform/session/ToolRunner.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// Lists and runs the user's shortcuts with the system's command-line tool. A small value;
/// every operation blocks its caller, on any thread.
class ShortcutsProvider {
public:
    struct Failure {
        enum class Case { failed, notInstalled, timedOut };
        Case reason = Case::failed;
        std::string message {}; ///< of failed

        [[nodiscard]] std::string description() const;
        friend bool operator==(Failure const&, Failure const&) = default;
    };
    static constexpr char const* toolPath = "/usr/bin/shortcuts";
    static constexpr std::chrono::seconds listingTimeout { 10 };

    explicit ShortcutsProvider(std::shared_ptr<ToolRunner> runner, std::string path = toolPath)
        : m_runner(std::move(runner))
        , m_path(std::move(path))
    {
    }

    [[nodiscard]] Result<std::string, Failure> runTool(
        std::vector<std::string> arguments, ToolOutput output, std::optional<std::chrono::milliseconds> timeout) const;
    /// Never fails: errors land in the library's `failure`.
    [[nodiscard]] ShortcutsLibrary loadLibrary() const;
    /// Blocks as long as the shortcut runs.
    [[nodiscard]] Result<void, Failure> run(std::string const& id) const;

    /// Parses "Name (UUID)", the form of all lists of the tool.
    [[nodiscard]] static std::optional<Shortcut> parseLine(std::string_view line);

private:
    [[nodiscard]] Result<std::vector<Shortcut>, Failure> list(std::vector<std::string> arguments) const;

    std::shared_ptr<ToolRunner> m_runner;
    std::string m_path;
};

} // namespace zv
