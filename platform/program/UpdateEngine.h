#pragma once

#include "base/Result.h"
#include "platform/time/Clock.h"

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace zv {

/// An update that the engine found.
struct UpdateItem {
    std::string displayVersion;
};

/// Asked by the engine while it chooses among the versions on offer.
class UpdateChannels {
public:
    virtual ~UpdateChannels() = default;
    /// The channels to look at beside the default one.
    [[nodiscard]] virtual std::set<std::string> allowedChannels() const = 0;
};

/// Asked and told by the engine while it shows an update to the user.
class UpdateUserDriver {
public:
    virtual ~UpdateUserDriver() = default;
    [[nodiscard]] virtual bool supportsGentleScheduledUpdateReminders() const = 0;
    /// True when the engine shows the update that a scheduled check found; false: we remind gently.
    [[nodiscard]] virtual bool shouldHandleShowingScheduledUpdate(UpdateItem const& update, bool inImmediateFocus) = 0;
    virtual void willHandleShowingUpdate(bool engineShowsIt, UpdateItem const& update) = 0;
    virtual void didReceiveUserAttention(UpdateItem const& update) = 0;
    virtual void willFinishUpdateSession() = 0;
};

/// Finds, verifies and installs updates of this program. Main thread only.
class UpdateEngine {
public:
    virtual ~UpdateEngine() = default;
    /// The failure is the error's description.
    [[nodiscard]] virtual Result<void> start() = 0;
    /// Checks, visibly, at the user's request. A pending update is brought to the front.
    virtual void checkForUpdates() = 0;
    [[nodiscard]] virtual bool canCheckForUpdates() const = 0;
    [[nodiscard]] virtual bool automaticallyChecksForUpdates() const = 0;
    virtual void setAutomaticallyChecksForUpdates(bool automatically) = 0;
    [[nodiscard]] virtual std::optional<WallTime> lastUpdateCheckDate() const = 0;

    std::function<void()> onCanCheckChanged;
    std::function<void()> onAutomaticallyChecksChanged;
};

/// Makes the engine without starting it. Both delegates outlive it.
using UpdateEngineFactory = std::function<std::unique_ptr<UpdateEngine>(UpdateChannels& channels, UpdateUserDriver& userDriver)>;

} // namespace zv
