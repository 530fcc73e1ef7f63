#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace zv {

enum class TaskPriority { user, utility };

/// The one way off the main thread and back.
class Tasks {
public:
    virtual ~Tasks() = default;

    /// Runs `work` on another thread. Called on the main thread; `work` must own all it touches.
    virtual void runInBackground(TaskPriority priority, std::function<void()> work) = 0;
    /// Runs `work` on a thread of its own, which nothing waits for, the program's end neither:
    /// for work that may hang, such as looking at a dead network mount. The function that `work`
    /// returns runs on the main thread. `work` owns all it touches, by shared pointers.
    virtual void runDetached(std::function<std::function<void()>()> work) = 0;
    /// Runs `work` on the main thread in a later turn of its loop. From any thread. After
    /// the loop has ended the work is dropped.
    virtual void runOnMain(std::function<void()> work) = 0;

    /// Computes in the background and hands the result to `thenOnMain` on the main thread.
    /// `thenOnMain` holds its owner weakly (base/Lifetime.h).
    template <class Work, class Then> void inBackground(TaskPriority priority, Work work, Then thenOnMain)
    {
        // The closures are moved, never copied: whatever they own is released on the main thread.
        auto const then = std::make_shared<Then>(std::move(thenOnMain));
        runInBackground(priority, [this, work = std::move(work), then]() mutable {
            auto result = std::make_shared<decltype(work())>(work());
            runOnMain([then = std::move(then), result] { (*then)(std::move(*result)); });
        });
    }
};

} // namespace zv
