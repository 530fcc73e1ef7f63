#pragma once

#include "platform/session/ToolRunner.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// Lists and switches the network locations with the system's tool. Blocks its caller.
class NetworkLocations {
public:
    struct Location {
        std::string id; ///< as the tool prints it; without white space
        std::string name;
        bool isCurrent = false;
        friend bool operator==(Location const&, Location const&) = default;
    };
    static constexpr char const* toolPath = "/usr/sbin/scselect";

    explicit NetworkLocations(std::shared_ptr<ToolRunner> runner, std::string path = toolPath)
        : m_runner(std::move(runner))
        , m_path(std::move(path))
    {
    }

    /// Empty when the tool gives no list.
    [[nodiscard]] std::vector<Location> list() const;
    [[nodiscard]] bool select(std::string const& id) const;

    /// Parses one line of the tool's list; empty for its header and other text.
    [[nodiscard]] static std::optional<Location> parseLine(std::string_view line);

private:
    [[nodiscard]] std::optional<std::string> runTool(std::string const& argument) const;

    std::shared_ptr<ToolRunner> m_runner;
    std::string m_path;
};

[[nodiscard]] std::size_t hashValue(NetworkLocations::Location const& location);

} // namespace zv
