#include "platform/linux/compose/ProcessEnvironment.h"

#include "platform/linux/posix/LaunchContext.h"

#include <cstdlib>
#include <string_view>
#include <unistd.h>

namespace zv {

Environment processEnvironment()
{
    Environment environment;
    for (auto const* const* line = environ; line && *line; ++line) {
        std::string_view const text = *line;
        if (auto const equals = text.find('='); equals != std::string_view::npos)
            environment.emplace(text.substr(0, equals), text.substr(equals + 1));
    }
    return environment;
}

void setForThisProgramAlone(char const* name, char const* value)
{
    if (::getenv(name))
        return;
    ::setenv(name, value, 1);
    keepFromChildren(name);
}

} // namespace zv
