#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zv {

enum class ToolOutput : std::uint8_t {
    discarded, ///< standard output goes to the null device
    captured,
    capturedWithErrors, ///< standard error goes into the same pipe as standard output
};

struct ToolRequest {
    std::string path; ///< absolute
    std::vector<std::string> arguments; ///< without the program's own name
    ToolOutput output = ToolOutput::captured;
    std::optional<std::chrono::milliseconds> timeout {}; ///< absent: as long as it takes
};

struct ToolResult {
    enum class End : std::uint8_t {
        exited, ///< `status` is its exit status
        signalled, ///< ended by a signal, the watchdog's or another
        notStarted, ///< no executable file there, or the system refused
    };
    End end = End::notStarted;
    int status = 0;
    std::string output; ///< bytes, as the tool wrote them
    std::string errorOutput; ///< likewise; empty when it went into `output`
};

/// Runs external tools with the null device as standard input. Blocks its caller until
/// the tool has ended and its output was read to the end. Any thread.
class ToolRunner {
public:
    virtual ~ToolRunner() = default;
    virtual ToolResult run(ToolRequest const& request) = 0;
};

} // namespace zv
