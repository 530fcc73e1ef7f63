#pragma once

#include "base/Url.h"

#include <cstddef>
#include <span>

namespace zv {

/// True when `signature` (64 bytes) is the Ed25519 (RFC 8032) signature of the whole file under `key`
/// (32 bytes). False for anything else, an unreadable file included. Any thread.
[[nodiscard]] bool isSignedBy(std::span<std::byte const> key, std::span<std::byte const> signature, Url const& file);
/// The same of bytes.
[[nodiscard]] bool isSignedBy(std::span<std::byte const> key, std::span<std::byte const> signature, std::span<std::byte const> bytes);

} // namespace zv
