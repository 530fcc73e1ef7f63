#include "base/Log.h"

#include <cstdio>
#include <utility>

namespace zv {

namespace {
std::function<void(std::string const&)>& capture()
{
    static std::function<void(std::string const&)> sink;
    return sink;
}
} // namespace

void logLine(std::string_view message)
{
    std::string line = "Zanthe Vell: ";
    for (char const c : message)
        line += (c == '\n' || c == '\r') ? ' ' : c;
    if (capture())
        return capture()(line);
    line += '\n';
    std::fputs(line.c_str(), stderr);
}

LogCapture::LogCapture(std::function<void(std::string const&)> sink) { capture() = std::move(sink); }

LogCapture::~LogCapture() { capture() = nullptr; }

} // namespace zv
