#pragma once

#include "base/Result.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zv {

/// A version on offer in an update feed. Texts are empty where the feed says nothing.
struct AppcastItem {
    std::string version; ///< compared; the build's own version
    std::string displayVersion; ///< read by people
    std::string channel; ///< empty for the default one
    std::string operatingSystem; ///< of the enclosure: "linux", "macos"; empty for any
    std::string minimumSystemVersion;
    std::string maximumSystemVersion;
    bool isCritical = false;
    std::string criticalBefore; ///< critical for versions before this one only; empty for all
    std::string releaseNotes; ///< HTML or plain text
    std::string releasePage; ///< an address
    std::string downloadAddress;
    std::optional<std::uint64_t> downloadSize; ///< bytes
    std::string signature; ///< base64 of an Ed25519 signature of the file
};

/// Reads an RSS feed with the update framework's own elements, in the feed's order. Entities
/// that the document declares itself, and external ones, are refused. Each system has one
/// file of its own behind this. The failure is a sentence without a final stop. Any thread.
[[nodiscard]] Result<std::vector<AppcastItem>> readAppcast(std::span<std::byte const> bytes);

} // namespace zv
