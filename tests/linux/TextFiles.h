#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace zv::tests {

inline void writeText(std::string const& path, std::string_view text) { std::ofstream(path, std::ios::binary) << text; }

inline std::string readText(std::string const& path)
{
    std::ifstream file(path, std::ios::binary);
    return { std::istreambuf_iterator<char>(file), {} };
}

} // namespace zv::tests
