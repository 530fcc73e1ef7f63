#pragma once

#include "base/Lifetime.h"
#include "platform/linux/apps/ApplicationIndex.h"
#include "platform/linux/apps/ClientWindows.h"
#include "platform/lists/RunningApplications.h"

#include <QDBusConnection>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zv {

/// Running applications by their windows; where the desktop does not tell these, by the units of
/// the user's service manager. Main thread only.
class DesktopRunningApplications : public RunningApplications {
public:
    struct Services {
        ApplicationCatalog& catalog;
        /// Starts the application of an entry that has no window to raise.
        std::function<void(Url const&)> launch;
        QDBusConnection sessionBus { QStringLiteral("none") };
    };

    /// `windows` is null where nobody tells them. The services outlive this.
    DesktopRunningApplications(Services services, std::unique_ptr<ClientWindows> windows);

    void list(std::function<void(List)> done) override;
    void activate(std::string const& id) override;
    void quit(std::string const& id) override;
    /// Asks on a new connection, after the former was lost.
    void useBus(QDBusConnection const& bus) { m_services.sessionBus = bus; }

private:
    void listUnits(ApplicationCatalog::Index const& index, std::function<void(List)> done);
    /// Hands over the index, and the application's windows, the topmost last.
    using Use = std::function<void(ApplicationIndex const&, std::vector<ClientWindow> const&)>;
    void withWindowsOf(std::string const& id, Use use);
    void activate(ApplicationIndex const& index, std::vector<ClientWindow> const& windows, std::string const& id);

    Services m_services;
    std::unique_ptr<ClientWindows> m_windows;
    Lifetime m_lifetime;
};

/// The windows of Qt's X server; null when there is none. In a Wayland session it knows only
/// some of the windows.
[[nodiscard]] std::unique_ptr<ClientWindows> clientWindowsOfThisDisplay();

} // namespace zv
