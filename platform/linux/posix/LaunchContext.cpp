#include "platform/linux/posix/LaunchContext.h"

#include <vector>

namespace zv {

namespace {

std::vector<std::string>& ownVariables()
{
    // What this program was told at its own start is used up.
    static std::vector<std::string> names { "DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN" };
    return names;
}

LaunchTokens& ownTokens()
{
    static LaunchTokens tokens;
    return tokens;
}

/// A context that GIO asks for an id where the application's entry wants startup notification.
struct NotifyingContext {
    GAppLaunchContext parent;
};
struct NotifyingContextClass {
    GAppLaunchContextClass parent;
};

char* startupIdOf(GAppLaunchContext*, GAppInfo* application, GList*)
{
    auto const id = ownTokens().startupId ? ownTokens().startupId(g_app_info_get_name(application)) : std::string();
    return id.empty() ? nullptr : g_strdup(id.c_str());
}

GType notifyingContextType()
{
    static GType const type = g_type_register_static_simple(
        G_TYPE_APP_LAUNCH_CONTEXT, "ZvNotifyingContext", sizeof(NotifyingContextClass),
        [](gpointer itsClass, gpointer) { static_cast<NotifyingContextClass*>(itsClass)->parent.get_startup_notify_id = startupIdOf; },
        sizeof(NotifyingContext), nullptr, G_TYPE_FLAG_NONE);
    return type;
}

} // namespace

void setLaunchTokens(LaunchTokens tokens) { ownTokens() = std::move(tokens); }

LaunchTokens const& launchTokens() { return ownTokens(); }

void keepFromChildren(std::string variable) { ownVariables().push_back(std::move(variable)); }

GObjectRef<GAppLaunchContext> launchContext()
{
    GObjectRef<GAppLaunchContext> context(G_APP_LAUNCH_CONTEXT(g_object_new(notifyingContextType(), nullptr)));
    for (auto const& name : ownVariables())
        g_app_launch_context_unsetenv(context.get(), name.c_str());
    auto const token = ownTokens().activationToken ? ownTokens().activationToken() : std::string();
    if (!token.empty())
        g_app_launch_context_setenv(context.get(), "XDG_ACTIVATION_TOKEN", token.c_str());
    return context;
}

} // namespace zv
