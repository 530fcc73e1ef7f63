#pragma once

#include "platform/program/Environment.h"

namespace zv {

/// Multiplies the toolkit's scale by the desktop's own factor for windows, where the dots per inch that the toolkit
/// reads do not hold it already. Lives while the application is made: what that starts must not inherit it.
class DesktopScale {
public:
    explicit DesktopScale(Environment const& environment);
    ~DesktopScale();

private:
    bool m_isSet = false;
};

} // namespace zv
