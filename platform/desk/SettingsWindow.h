#pragma once

namespace zv {

/// The settings window, of which there is one. Main thread only.
class SettingsWindow {
public:
    virtual ~SettingsWindow() = default;
    /// Opens it, or brings it to the front.
    virtual void openOrRaise() = 0;
};

} // namespace zv
