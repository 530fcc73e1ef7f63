#pragma once

#include "platform/linux/apps/ClientWindows.h"

#include <functional>
#include <memory>
#include <vector>

struct wl_array;
struct wl_output;
struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;

namespace zv {

class WaylandGlobals;

/// The windows of all programs where the compositor has zwlr_foreign_toplevel_manager_v1, as
/// those over wlroots have.
class ForeignToplevels {
public:
    ~ForeignToplevels();
    ForeignToplevels(ForeignToplevels const&) = delete;
    ForeignToplevels& operator=(ForeignToplevels const&) = delete;

    /// Null where the compositor does not tell its windows. The globals outlive it.
    [[nodiscard]] static std::shared_ptr<ForeignToplevels> of(WaylandGlobals const* globals);
    /// The same for lists; null for null.
    [[nodiscard]] static std::unique_ptr<ClientWindows> windowsOf(std::shared_ptr<ForeignToplevels> toplevels);

    [[nodiscard]] std::vector<ClientWindow> list() const;
    void activate(std::uint32_t window) const;
    void close(std::uint32_t window) const;
    /// Whether a window fills the output, panels included. The output is of the same connection.
    [[nodiscard]] bool isFilled(wl_output const* output) const;

    /// Called when a window has come, changed its state or its output, or gone.
    std::function<void()> onChanged;

private:
    struct Toplevel;

    explicit ForeignToplevels(WaylandGlobals const& globals);
    static void found(void* self, zwlr_foreign_toplevel_manager_v1* manager, zwlr_foreign_toplevel_handle_v1* handle);
    void add(zwlr_foreign_toplevel_handle_v1* handle);
    void remove(Toplevel const& toplevel);
    void used(Toplevel const& toplevel);
    void changed() const;
    [[nodiscard]] Toplevel const* find(std::uint32_t window) const;

    WaylandGlobals const& m_globals;
    std::vector<std::unique_ptr<Toplevel>> m_toplevels; ///< the one used last at the end
    std::uint32_t m_lastNumber = 0;
};

} // namespace zv
