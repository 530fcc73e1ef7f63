#pragma once

#include "base/Result.h"
#include "platform/linux/posix/FileDescriptor.h"

#include <chrono>
#include <string>

namespace zv {

/// Locks a file, made where it is missing, against all others that lock it, until the result is destroyed; the
/// system unlocks it however the process ends. Fails when another one holds it too long.
[[nodiscard]] Result<FileDescriptor> lockFile(std::string const& path, std::chrono::milliseconds patience);

} // namespace zv
