#pragma once

#include "app/updates/SignedFeed.h"
#include "app/updates/UpdateChoice.h"
#include "app/updates/UpdateSchedule.h"
#include "base/Lifetime.h"
#include "platform/desk/Application.h"
#include "platform/files/Resources.h"
#include "platform/program/Downloads.h"
#include "platform/program/PackageOrigin.h"
#include "platform/program/UpdateEngine.h"
#include "platform/program/UpdateWindow.h"
#include "platform/session/Workspace.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace zv {

/// The update engine of systems without one of their own: reads a signed feed, offers a newer
/// version, downloads and verifies it, and hands it to the desktop's software installer. Never
/// changes an installation itself. Main thread only.
class AppcastUpdateEngine : public UpdateEngine {
public:
    struct Services {
        UserDefaults& defaults;
        Resources const& resources;
        Clock const& clock;
        Timers& timers;
        Application& application;
        Workspace& workspace;
        Downloads& downloads;
        PackageOrigin const& origin;
        UpdateWindow& window;
        /// Opens a package in the desktop's installer; `done` is told whether anything took it.
        std::function<void(Url const& package, std::function<void(Result<void>)> done)> openPackage;
    };

    AppcastUpdateEngine(Services services, UpdateChannels& channels, UpdateUserDriver& userDriver);
    ~AppcastUpdateEngine() override;

    /// Starts even without a feed or a key, but then checks nothing.
    Result<void> start() override;
    void checkForUpdates() override;
    bool canCheckForUpdates() const override;
    bool automaticallyChecksForUpdates() const override;
    void setAutomaticallyChecksForUpdates(bool automatically) override;
    std::optional<WallTime> lastUpdateCheckDate() const override;

private:
    enum class Asker { user, schedule };
    /// The session's state; each but idle belongs to one update session.
    enum class State { idle, checking, reminded, offering, downloading, told };

    void enter(State state);
    void check(Asker asker);
    void feedArrived(Asker asker, Result<Downloads::Bytes> const& feed);
    [[nodiscard]] std::optional<AppcastItem> choose(Asker asker, std::vector<AppcastItem> const& items) const;
    void found(Asker asker, AppcastItem const& item);
    void foundNothing(Asker asker);
    void failed(Asker asker, std::string const& reason);

    void offer();
    void offerAnswered(std::size_t button);
    void download();
    void showProgress(std::uint64_t received);
    void downloadArrived(Result<Url> const& file);
    void packageOpened(Url const& file, Result<void> const& opened);
    [[nodiscard]] Result<void> verify(Url const& file) const;
    [[nodiscard]] bool isOurs(SignedFeed const& feed) const;
    void tell(UpdatePage const& page);
    void buttonPressed(std::size_t button);
    void finishSession();

    [[nodiscard]] std::string currentVersion() const;
    [[nodiscard]] UpdateItem pendingItem() const;

    Services m_services;
    UpdateChannels& m_channels;
    UpdateUserDriver& m_userDriver;
    UpdateSchedule m_schedule;
    State m_state = State::idle;
    std::optional<AppcastItem> m_pending;
    std::unique_ptr<Download> m_download;
    std::optional<Url> m_unopened; ///< the package that nothing opens
    Lifetime m_lifetime;
};

} // namespace zv
