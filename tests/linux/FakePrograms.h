#pragma once

#include "platform/linux/session/Programs.h"

#include <set>
#include <string>
#include <vector>

namespace zv::tests {

/// Starts nothing; records the commands.
class FakePrograms : public Programs {
public:
    bool has(std::string_view name) const override { return installed.contains(std::string(name)); }
    bool start(std::vector<std::string> const& command) override
    {
        if (!has(command.front()))
            return false;
        std::string line;
        for (auto const& word : command)
            line += (line.empty() ? "" : " ") + word;
        started.push_back(line);
        return !failing.contains(command.front());
    }
    bool hasEntry(std::string_view fileName) const override { return entries.contains(std::string(fileName)); }

    std::set<std::string> installed;
    std::set<std::string> failing;
    std::set<std::string> entries;
    std::vector<std::string> started;
};

} // namespace zv::tests
