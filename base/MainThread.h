#pragma once

namespace zv {

/// Marks the calling thread as the main thread: main's, or that of a test's main. Code runs there
/// unless its comment says otherwise.
void markMainThread();
[[nodiscard]] bool isMainThread();

/// Aborts with a message when called on another thread: always a programming error.
void assertMainThread();

} // namespace zv
