#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace zv {

/// Writes one line, "Zanthe Vell: " and the message, to standard error. Line breaks
/// in the message become blanks, so that one message stays one line. Any thread.
void logLine(std::string_view message);

/// Redirects the lines (with their prefix, without the line break) while it lives; for tests. Main thread only.
class LogCapture {
public:
    explicit LogCapture(std::function<void(std::string const&)> sink);
    ~LogCapture();
    LogCapture(LogCapture const&) = delete;
    LogCapture& operator=(LogCapture const&) = delete;
};

} // namespace zv
