#pragma once

#include <functional>
#include <string>
#include <vector>

namespace zv {

/// The user's base directories, as the desktop's conventions define them. All are absolute,
/// without a trailing slash; none need exist.
struct XdgDirectories {
    std::string home;
    std::string config;
    std::string data;
    std::string cache;
    std::string state;
    std::string runtime; ///< empty when the session has none
    std::vector<std::string> dataDirs; ///< the system's, in order of preference; without `data`
    std::vector<std::string> configDirs;

    using Environment = std::function<char const*(char const* name)>;
    /// Values that are not absolute count as unset, as the conventions demand.
    [[nodiscard]] static XdgDirectories from(Environment const& environment);
    [[nodiscard]] static XdgDirectories current();
};

} // namespace zv
