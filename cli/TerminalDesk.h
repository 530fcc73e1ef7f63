#pragma once

#include "platform/desk/Desk.h"
#include "platform/program/RunningProgram.h"

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace zv {

/// What entries talk through when they are chosen from a terminal: an alert that warns is a
/// failure, and what one asks is declined; what one merely tells is printed. The running
/// program stands for the application. Main thread only.
class TerminalDesk {
public:
    /// Both outlive this.
    TerminalDesk(RunningProgram& program, std::ostream& out);
    ~TerminalDesk();

    [[nodiscard]] Desk desk();
    void openSettings();
    void hold(ModifierMask keys);
    void fail(std::string sentence);
    /// Those since the last call.
    [[nodiscard]] std::vector<std::string> takeFailures();

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace zv
