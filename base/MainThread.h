#pragma once

namespace zv {

/// Everything that is not said to be otherwise runs on the main thread. The first
/// caller of markMainThread() (main, or a test's main) decides which one that is.
void markMainThread();
[[nodiscard]] bool isMainThread();

/// Aborts with a message when called elsewhere: a mistake of ours, never of the user's.
void assertMainThread();

} // namespace zv
