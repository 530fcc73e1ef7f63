#include "platform/linux/entries/ExecLine.h"

namespace zv {

std::string quotedForExec(std::string_view path)
{
    std::string quoted = "\"";
    for (char const c : path) {
        if (c == '"' || c == '`' || c == '$' || c == '\\')
            quoted += c == '\\' ? "\\\\\\" : "\\\\";
        if (c == '%')
            quoted += '%';
        quoted += c;
    }
    return quoted + '"';
}

} // namespace zv
