#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// What the update window shows. Everything is plain text.
struct UpdatePage {
    std::string title;
    std::string message;
    std::string notes; ///< scrolls; empty for none
    std::string notesName; ///< of the notes, for assistive tools
    std::optional<double> progress; ///< 0 to 1; negative while the end is unknown; none for no bar
    std::vector<std::string> buttons; ///< the first is the default
    std::size_t escapeButton = 0; ///< also closing the window
};

/// The one window in which updates are told and offered. Main thread only.
class UpdateWindow {
public:
    virtual ~UpdateWindow() = default;
    /// Opens the window or changes what it shows.
    virtual void show(UpdatePage const& page) = 0;
    virtual void bringToFront() = 0;
    virtual void close() = 0;
    /// The index of the button pressed on the page shown. Set by its one user.
    std::function<void(std::size_t)> onButton;
};

} // namespace zv
