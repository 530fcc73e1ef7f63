#pragma once

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Screens.h"
#include "platform/menubar/PointerMonitor.h"

#include <QTimer>

#include <memory>

namespace zv {

/// Reports the pointer's raw motion, at most 25 times a second: between reports it selects no
/// events, so that a fast mouse does not keep the program awake.
class X11PointerMonitor : public PointerMonitor {
public:
    X11PointerMonitor(X11Connection& x, X11Screens const& screens);

    std::unique_ptr<Token> watch(std::function<void()> moved) override;
    Point location() const override;

private:
    class Watch;

    X11Connection& m_x;
    X11Screens const& m_screens;
    std::uint8_t m_opcode = 0; ///< of the input extension; 0 without it
};

} // namespace zv
