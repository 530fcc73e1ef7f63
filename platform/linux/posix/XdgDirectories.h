#pragma once

#include "platform/program/Environment.h"

#include <string>
#include <vector>

namespace zv {

/// The user's base directories: https://specifications.freedesktop.org/basedir-spec. All are
/// absolute, without a trailing slash; none need exist.
struct XdgDirectories {
    std::string home;
    std::string config;
    std::string data;
    std::string cache;
    std::string state;
    std::string runtime; ///< empty when the session has none
    std::vector<std::string> dataDirs; ///< the system's, in order of preference; without `data`
    std::vector<std::string> configDirs;

    /// Values that are not absolute count as unset, as the document demands.
    [[nodiscard]] static XdgDirectories of(Environment const& environment);

    /// The folders of application entries, the user's own first.
    [[nodiscard]] std::vector<std::string> applicationFolders() const;
    /// The desktop's list of recently used files.
    [[nodiscard]] std::string recentlyUsedFile() const { return data + "/recently-used.xbel"; }
};

} // namespace zv
