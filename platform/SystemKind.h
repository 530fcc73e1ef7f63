#pragma once

namespace zv {

/// The system whose words and habits apply.
enum class SystemKind { macOS, linuxDesktop };

} // namespace zv
