#pragma once

#include "platform/program/Environment.h"

#include <string>
#include <vector>

namespace zv {

/// The user's base directories, as the desktop's conventions define them
/// (https://specifications.freedesktop.org/basedir-spec). All are absolute, without a trailing
/// slash; none need exist.
struct XdgDirectories {
    std::string home;
    std::string config;
    std::string data;
    std::string cache;
    std::string state;
    std::string runtime; ///< empty when the session has none
    std::vector<std::string> dataDirs; ///< the system's, in order of preference; without `data`
    std::vector<std::string> configDirs;

    /// Values that are not absolute count as unset, as the conventions demand.
    [[nodiscard]] static XdgDirectories of(Environment const& environment);

    /// Where application entries lie, the user's own first.
    [[nodiscard]] std::vector<std::string> applicationFolders() const;
    /// The desktop's list of what was used.
    [[nodiscard]] std::string recentlyUsedFile() const { return data + "/recently-used.xbel"; }
};

} // namespace zv
