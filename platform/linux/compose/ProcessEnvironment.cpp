#include "platform/linux/compose/ProcessEnvironment.h"

#include "platform/linux/posix/LaunchContext.h"

#include <cstdlib>
#include <mutex>
#include <string_view>
#include <unistd.h>

namespace zv {

namespace {

/// https://gitlab.freedesktop.org/wayland/wayland-protocols, staging/xdg-activation
constexpr char const* activationToken = "XDG_ACTIVATION_TOKEN";

} // namespace

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
    if (auto const* given = ::getenv(name); given && *given)
        return;
    ::setenv(name, value, 1);
    keepFromChildren(name);
}

std::string activationTokenOf(Environment const& environment)
{
    auto const token = valueOf(environment, activationToken);
    return token.empty() ? valueOf(environment, "DESKTOP_STARTUP_ID") : token;
}

void useActivationToken(std::string const& token)
{
    static std::once_flag once;
    std::call_once(once, [] { keepFromChildren(activationToken); });
    ::setenv(activationToken, token.c_str(), 1);
}

} // namespace zv
