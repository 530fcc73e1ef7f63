#pragma once

#include <memory>
#include <string>

namespace zv {

class Menu;

/// An icon among the status icons; destroying it removes it.
class StatusItem {
public:
    virtual ~StatusItem() = default;
};

struct StatusItemLook {
    std::string symbol; ///< the name of a monochrome picture that the bar tints
    std::string accessibilityDescription;
    friend bool operator==(StatusItemLook const&, StatusItemLook const&) = default;
};

/// The system's row of status icons. Main thread only.
class StatusBar {
public:
    virtual ~StatusBar() = default;
    /// A square item; a click on it opens `menu`, which is asked to fill itself each time.
    [[nodiscard]] virtual std::unique_ptr<StatusItem> add(StatusItemLook const& look, std::shared_ptr<Menu> menu) = 0;
};

} // namespace zv
