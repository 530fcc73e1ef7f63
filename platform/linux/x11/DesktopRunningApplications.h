#pragma once

#include "base/Lifetime.h"
#include "platform/linux/apps/ApplicationIndex.h"
#include "platform/linux/x11/X11ClientWindows.h"
#include "platform/lists/RunningApplications.h"

#include <QDBusConnection>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// Running applications by their windows on X11; elsewhere by the units of the user's service
/// manager. Main thread only.
class DesktopRunningApplications : public RunningApplications {
public:
    struct Services {
        ApplicationCatalog& catalog;
        /// Starts the application of an entry that has no window to raise.
        std::function<void(Url const&)> launch;
        QDBusConnection sessionBus { QStringLiteral("none") };
    };

    /// `windows` is nothing unless the desktop is X11. The services outlive this.
    DesktopRunningApplications(Services services, std::optional<X11ClientWindows> windows);

    void list(std::function<void(List)> done) override;
    void activate(std::string const& id) override;
    void quit(std::string const& id) override;
    /// Asks on a new connection, after the former was lost.
    void useBus(QDBusConnection const& bus) { m_services.sessionBus = bus; }

private:
    void listUnits(ApplicationCatalog::Index const& index, std::function<void(List)> done);
    /// The application's windows, the topmost last.
    [[nodiscard]] std::vector<ClientWindow> windowsOf(ApplicationIndex const& index, std::string const& id) const;
    void activateIn(ApplicationIndex const& index, std::string const& id);

    Services m_services;
    std::optional<X11ClientWindows> m_windows;
    Lifetime m_lifetime;
};

/// The windows of Qt's X server; nothing when there is none. In a Wayland session it knows only
/// some of the windows.
[[nodiscard]] std::optional<X11ClientWindows> clientWindowsOfThisDisplay();

} // namespace zv
