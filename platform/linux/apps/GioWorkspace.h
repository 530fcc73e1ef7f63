#pragma once

#include "base/Lifetime.h"
#include "platform/linux/apps/ApplicationIndex.h"
#include "platform/linux/apps/LaunchLog.h"
#include "platform/linux/apps/Launching.h"
#include "platform/lists/RunningApplications.h"
#include "platform/session/Workspace.h"
#include "platform/time/Tasks.h"

#include <memory>
#include <optional>
#include <string>

namespace zv {

/// Opens through GIO's applications and handlers, reveals through the file manager's D-Bus
/// service. All in the background: a handler may lie on a slow disk.
class GioWorkspace : public Workspace {
public:
    struct Services {
        Tasks& tasks;
        RunningApplications& runningApplications;
        ApplicationCatalog& applications;
    };

    /// `sessionBus` is an address; empty where there is no bus. Started applications are noted in
    /// `launches`.
    GioWorkspace(std::string sessionBus, LaunchLog launches, StartTrust trust, Services services)
        : m_sessionBus(std::move(sessionBus))
        , m_launches(std::move(launches))
        , m_trust(std::move(trust))
        , m_services(services)
    {
    }

    void open(Url const& url) override;
    void startUntrusted(UntrustedStart const& start, StartConsent consent) override;
    void reveal(Url const& fileURL) override;
    void findApplicationsFor(Url const& file, std::function<void(std::vector<InstalledApplication>)> done) override;
    void openWith(Url const& file, Url const& application) override;
    void moveToTrash(Url const& file, std::function<void(Result<void>)> done) override;
    void transfer(Url const& file, Url const& place, FileTransfer how, std::function<void(Result<void>)> done) override;
    std::optional<Url> applicationWithIdentifier(std::string_view identifier) const override;
    void openNewInstance(Url const& application, std::function<void(Result<void>)> done) override;

private:
    using Outcome = Result<void, OpenFailure>;

    void openApplication(Url const& url, std::string const& entryFile);
    void openInBackground(Url const& url, std::optional<UntrustedStart> agreed = std::nullopt, std::optional<StartConsent> consent = std::nullopt);
    void opened(Url const& url, Outcome const& outcome);

    std::string m_sessionBus;
    LaunchLog m_launches;
    StartTrust m_trust;
    Services m_services;
    Lifetime m_lifetime;
};

} // namespace zv
