#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zv {

enum class AlertStyle { warning, informational };

struct Alert {
    AlertStyle style = AlertStyle::warning;
    std::string message;
    std::string informativeText;
    std::vector<std::string> buttons { "OK" }; ///< in order, the first is the default
    /// The button that Escape presses; with a single button Escape presses that.
    std::size_t escapeButton = 0;
};

/// Modal alerts. The caller activates the application first. Main thread only.
class Alerts {
public:
    virtual ~Alerts() = default;
    /// The index of the button that was pressed.
    virtual std::size_t run(Alert const& alert) = 0;
};

} // namespace zv
