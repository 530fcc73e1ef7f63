#pragma once

#include "base/Result.h"
#include "base/Url.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace zv {

struct DownloadLimits {
    std::uint64_t bytes = 0; ///< at most; more is a failure
    std::chrono::milliseconds silence { 10'000 }; ///< the longest pause
    std::chrono::milliseconds total { 0 }; ///< for all of it; 0 for no limit
};

/// A running download; destroying it stops it, and its callback is not called.
class Download {
public:
    virtual ~Download() = default;
};

/// Fetches over HTTPS. Failures are sentences without a final stop. Sends nothing that
/// tells one user from another. Main thread only.
class Downloads {
public:
    using Bytes = std::vector<std::byte>;

    virtual ~Downloads() = default;
    [[nodiscard]] virtual std::unique_ptr<Download> fetch(Url const& address, DownloadLimits const& limits, std::function<void(Result<Bytes>)> done) = 0;
    /// Fetches into a file named after the address's last component, in a fresh folder of ours.
    /// Removes files of earlier downloads.
    [[nodiscard]] virtual std::unique_ptr<Download> fetchFile(
        Url const& address, DownloadLimits const& limits, std::function<void(std::uint64_t received)> progress, std::function<void(Result<Url>)> done)
        = 0;
    /// Removes the folder that fetchFile() made for the file.
    virtual void discard(Url const& file) = 0;
};

} // namespace zv
