#pragma once

#include "platform/desk/Desk.h"
#include "platform/program/RunningProgram.h"

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace zv {

/// The desk of entries chosen from a terminal: a warning alert is a failure, a question is
/// declined, a note is printed. The running program stands for the application. Main thread only.
class TerminalDesk {
public:
    /// Both outlive this.
    TerminalDesk(RunningProgram& program, std::ostream& out);
    ~TerminalDesk();

    [[nodiscard]] Desk desk();
    void openSettings();
    void hold(ModifierMask keys);
    void fail(std::string sentence);
    /// The failures since the last call.
    [[nodiscard]] std::vector<std::string> takeFailures();

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace zv
