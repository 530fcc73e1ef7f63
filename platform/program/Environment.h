#pragma once

#include <map>
#include <string>

namespace zv {

/// The process's environment. The composition reads it once, at the start, and hands it down.
using Environment = std::map<std::string, std::string>;

/// The variable's value; empty when it is not set.
[[nodiscard]] inline std::string valueOf(Environment const& environment, char const* variable)
{
    auto const found = environment.find(variable);
    return found == environment.end() ? std::string() : found->second;
}

} // namespace zv
