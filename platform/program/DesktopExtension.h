#pragma once

namespace zv {

/// Our part within the desktop's own program, which the user switches on. Main thread only.
class DesktopExtension {
public:
    enum class State {
        missing, ///< not installed, or of no use to this desktop
        off,
        onFromNextLogin, ///< the desktop has not yet read it
        on,
    };

    virtual ~DesktopExtension() = default;
    [[nodiscard]] virtual State state() const = 0;
    /// False when the desktop does not let the user do so.
    virtual bool switchTo(bool on) = 0;
};

} // namespace zv
