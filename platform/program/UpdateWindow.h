#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// The contents of the update window, all plain text.
struct UpdatePage {
    std::string title;
    std::string message;
    std::string notes; ///< scrolls; empty for none
    std::string notesName; ///< of the notes, for assistive tools
    std::optional<double> progress; ///< 0 to 1; negative while the end is unknown; absent for no bar
    std::vector<std::string> buttons; ///< the first is the default
    std::size_t escapeButton = 0; ///< also closing the window
};

/// The window that announces and offers updates. Main thread only.
class UpdateWindow {
public:
    virtual ~UpdateWindow() = default;
    /// Opens the window or changes its contents.
    virtual void show(UpdatePage const& page) = 0;
    virtual void bringToFront() = 0;
    virtual void close() = 0;
    /// Called with the index of the button pressed. Set by its one user.
    std::function<void(std::size_t)> onButton;
};

} // namespace zv
