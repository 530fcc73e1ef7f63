#include "platform/linux/posix/LaunchContext.h"

#include <vector>

namespace zv {

namespace {

std::vector<std::string>& ownVariables()
{
    static std::vector<std::string> names;
    return names;
}

} // namespace

void keepFromChildren(std::string variable) { ownVariables().push_back(std::move(variable)); }

GObjectRef<GAppLaunchContext> launchContext()
{
    GObjectRef<GAppLaunchContext> context(g_app_launch_context_new());
    for (auto const& name : ownVariables())
        g_app_launch_context_unsetenv(context.get(), name.c_str());
    return context;
}

} // namespace zv
