#include "platform/linux/wayland/ForeignToplevels.h"

#include "platform/linux/wayland/WaylandGlobals.h"

#include <algorithm>
#include <foreign-toplevels-client.h>
#include <span>
#include <wayland-client.h>

namespace zv {

namespace {

constexpr char const* ownId = "org.zanthevell.ZantheVell";

/// Numbers of the protocol.
enum State : std::uint32_t { activated = 2, fullScreen = 3 };

bool hasState(wl_array const& states, State wanted)
{
    std::span const all(static_cast<std::uint32_t const*>(states.data), states.size / sizeof(std::uint32_t));
    return std::ranges::find(all, static_cast<std::uint32_t>(wanted)) != all.end();
}

class ToplevelWindows : public ClientWindows {
public:
    explicit ToplevelWindows(std::shared_ptr<ForeignToplevels> toplevels)
        : m_toplevels(std::move(toplevels))
    {
    }
    void withList(std::function<void(List)> done) override { done(m_toplevels->list()); }
    void activate(std::uint32_t window) override { m_toplevels->activate(window); }
    void close(std::uint32_t window) override { m_toplevels->close(window); }

private:
    std::shared_ptr<ForeignToplevels> m_toplevels;
};

} // namespace

struct ForeignToplevels::Toplevel {
    ForeignToplevels& owner;
    zwlr_foreign_toplevel_handle_v1* handle;
    ClientWindow window;
    bool isFullScreen = false;
    std::vector<wl_output*> outputs;

    static Toplevel& of(void* data) { return *static_cast<Toplevel*>(data); }
    static void titled(void* data, zwlr_foreign_toplevel_handle_v1*, char const* title) { of(data).window.title = title; }
    /// The name of its application entry, as the protocol's windows have no other class.
    static void named(void* data, zwlr_foreign_toplevel_handle_v1*, char const* id) { of(data).window.windowClass = of(data).window.gtkApplicationId = id; }
    static void entered(void* data, zwlr_foreign_toplevel_handle_v1*, wl_output* output) { of(data).outputs.push_back(output); }
    static void left(void* data, zwlr_foreign_toplevel_handle_v1*, wl_output* output) { std::erase(of(data).outputs, output); }
    static void changed(void* data, zwlr_foreign_toplevel_handle_v1*, wl_array* states)
    {
        of(data).isFullScreen = hasState(*states, State::fullScreen);
        if (hasState(*states, State::activated))
            of(data).owner.used(of(data));
    }
    static void done(void* data, zwlr_foreign_toplevel_handle_v1*) { of(data).owner.changed(); }
    static void closed(void* data, zwlr_foreign_toplevel_handle_v1*) { of(data).owner.remove(of(data)); }
    static void hasParent(void*, zwlr_foreign_toplevel_handle_v1*, zwlr_foreign_toplevel_handle_v1*) { }
};

ForeignToplevels::ForeignToplevels(WaylandGlobals const& globals)
    : m_globals(globals)
{
    static zwlr_foreign_toplevel_manager_v1_listener const listener { found, [](void*, zwlr_foreign_toplevel_manager_v1*) {} };
    zwlr_foreign_toplevel_manager_v1_add_listener(globals.bindToplevels(), &listener, this);
    globals.catchUp(); // the windows, …
    globals.catchUp(); // … and what is known of each
}

ForeignToplevels::~ForeignToplevels() = default;

std::shared_ptr<ForeignToplevels> ForeignToplevels::of(WaylandGlobals const* globals)
{
    bool const isTold = globals && globals->hasToplevels();
    return isTold ? std::shared_ptr<ForeignToplevels>(new ForeignToplevels(*globals)) : nullptr;
}

std::unique_ptr<ClientWindows> ForeignToplevels::windowsOf(std::shared_ptr<ForeignToplevels> toplevels)
{
    return toplevels ? std::make_unique<ToplevelWindows>(std::move(toplevels)) : nullptr;
}

void ForeignToplevels::found(void* data, zwlr_foreign_toplevel_manager_v1*, zwlr_foreign_toplevel_handle_v1* handle)
{
    static_cast<ForeignToplevels*>(data)->add(handle);
}

void ForeignToplevels::add(zwlr_foreign_toplevel_handle_v1* handle)
{
    m_toplevels.push_back(std::make_unique<Toplevel>(Toplevel { .owner = *this, .handle = handle, .window = { .window = ++m_lastNumber }, .outputs = {} }));
    static zwlr_foreign_toplevel_handle_v1_listener const listener { Toplevel::titled, Toplevel::named, Toplevel::entered, Toplevel::left, Toplevel::changed,
        Toplevel::done, Toplevel::closed, Toplevel::hasParent };
    zwlr_foreign_toplevel_handle_v1_add_listener(handle, &listener, m_toplevels.back().get());
}

void ForeignToplevels::remove(Toplevel const& toplevel)
{
    zwlr_foreign_toplevel_handle_v1_destroy(toplevel.handle);
    std::erase_if(m_toplevels, [&toplevel](auto const& each) { return each.get() == &toplevel; });
    changed();
}

void ForeignToplevels::used(Toplevel const& toplevel)
{
    auto const place = std::ranges::find_if(m_toplevels, [&toplevel](auto const& each) { return each.get() == &toplevel; });
    std::rotate(place, place + 1, m_toplevels.end());
}

void ForeignToplevels::changed() const
{
    if (onChanged)
        onChanged();
}

std::vector<ClientWindow> ForeignToplevels::list() const
{
    std::vector<ClientWindow> windows;
    for (auto const& toplevel : m_toplevels) {
        if (toplevel->window.gtkApplicationId != ownId)
            windows.push_back(toplevel->window);
    }
    return windows;
}

ForeignToplevels::Toplevel const* ForeignToplevels::find(std::uint32_t window) const
{
    auto const found = std::ranges::find_if(m_toplevels, [window](auto const& each) { return each->window.window == window; });
    return found == m_toplevels.end() ? nullptr : found->get();
}

void ForeignToplevels::activate(std::uint32_t window) const
{
    if (auto const* toplevel = m_globals.seat() ? find(window) : nullptr)
        zwlr_foreign_toplevel_handle_v1_activate(toplevel->handle, m_globals.seat());
    m_globals.flush();
}

void ForeignToplevels::close(std::uint32_t window) const
{
    if (auto const* toplevel = find(window))
        zwlr_foreign_toplevel_handle_v1_close(toplevel->handle);
    m_globals.flush();
}

/// A window on a workspace that is out of sight keeps its state and its output: the one used last there decides.
bool ForeignToplevels::isFilled(wl_output const* output) const
{
    auto const isThere = [output](auto const& toplevel) { return std::ranges::find(toplevel->outputs, output) != toplevel->outputs.end(); };
    auto const last = std::ranges::find_if(m_toplevels.rbegin(), m_toplevels.rend(), isThere);
    return last != m_toplevels.rend() && (*last)->isFullScreen;
}

} // namespace zv
