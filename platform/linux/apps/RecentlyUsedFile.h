#pragma once

#include "platform/linux/posix/WholeFiles.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zv {

/// A bookmark in the desktop's list of recently used things (an XBEL file):
/// https://www.freedesktop.org/wiki/Specifications/desktop-bookmark-spec
struct RecentlyUsed {
    struct Application {
        std::string name;
        std::string exec; ///< the command line as registered
        std::int64_t lastUsed = 0;
    };

    std::string href;
    std::int64_t visited = 0; ///< seconds since 1970; 0 when unknown
    std::string mimeType;
    bool isPrivate = false; ///< only for the applications that registered it
    std::vector<Application> applications;
};

/// Hands on each bookmark as it is read, so memory use does not grow with the file. A damaged
/// file ends at the damage; earlier bookmarks stand. Any thread.
[[nodiscard]] FileReading readRecentlyUsed(std::string const& path, std::function<void(RecentlyUsed&&)> const& take);

/// Seconds since 1970 of "2023-06-01T10:20:30.123456Z"; 0 for any other form.
[[nodiscard]] std::int64_t secondsOfTimestamp(std::string const& text);

} // namespace zv
