#pragma once

#include <functional>
#include <vector>

namespace zv {

/// Whether the program's windows show in the Dock or the task list, or not.
enum class ActivationPolicy { regular, accessory };

struct WindowState {
    bool isTitled = false;
    bool isVisible = false;
    bool isMiniaturized = false;
};

/// This program among the others on the desktop. Main thread only.
class Application {
public:
    virtual ~Application() = default;
    virtual void activate() = 0;
    virtual void terminate() = 0;
    /// True after a terminate() that returned, as loops have to end first.
    [[nodiscard]] virtual bool isTerminating() const { return false; }
    [[nodiscard]] virtual bool isActive() const = 0;
    [[nodiscard]] virtual bool isHidden() const = 0;
    [[nodiscard]] virtual ActivationPolicy activationPolicy() const = 0;
    virtual void setActivationPolicy(ActivationPolicy policy) = 0;
    /// Our windows, in order.
    [[nodiscard]] virtual std::vector<WindowState> windows() const = 0;
    /// Called after a window of ours was shown, changed, or is about to close. Set by its one user.
    std::function<void()> onWindowsChanged;
};

} // namespace zv
