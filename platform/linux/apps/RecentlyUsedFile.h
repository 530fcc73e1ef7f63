#pragma once

#include "platform/linux/posix/WholeFiles.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zv {

/// One bookmark of the desktop's list of recently used things (an XBEL file):
/// https://www.freedesktop.org/wiki/Specifications/desktop-bookmark-spec
struct RecentlyUsed {
    struct Application {
        std::string name;
        std::string exec; ///< a command line, as it was registered
        std::int64_t lastUsed = 0;
    };

    std::string href;
    std::int64_t visited = 0; ///< seconds since 1970; 0 when unknown
    std::string mimeType;
    bool isPrivate = false; ///< meant for the applications that registered it alone
    std::vector<Application> applications;
};

/// Hands on one bookmark after the other while the file is read, so that its size costs no
/// memory. A file that is damaged ends there: what came before it stands. Any thread.
[[nodiscard]] FileReading readRecentlyUsed(std::string const& path, std::function<void(RecentlyUsed&&)> const& take);

/// "2023-06-01T10:20:30.123456Z"; 0 for anything else.
[[nodiscard]] std::int64_t secondsOfTimestamp(std::string const& text);

} // namespace zv
