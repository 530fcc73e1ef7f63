#pragma once

#include "platform/desk/UserNotifications.h"
#include "platform/program/UpdateEngine.h"

#include <string>
#include <vector>

namespace zv::fakes {

/// An engine that finds the updates that a test gives it.
class FakeUpdateEngine : public UpdateEngine {
public:
    Result<void> start() override
    {
        ++starts;
        return starting;
    }
    void checkForUpdates() override { ++checks; }
    bool canCheckForUpdates() const override { return canCheck; }
    bool automaticallyChecksForUpdates() const override { return automatic; }
    void setAutomaticallyChecksForUpdates(bool value) override
    {
        ++automaticWrites;
        automatic = value;
    }
    std::optional<WallTime> lastUpdateCheckDate() const override { return lastCheck; }

    /// Acts as a scheduled check that found this.
    void find(UpdateItem const& item, bool inImmediateFocus)
    {
        bool const shows = userDriver->shouldHandleShowingScheduledUpdate(item, inImmediateFocus);
        userDriver->willHandleShowingUpdate(shows, item);
    }

    UpdateChannels* channels = nullptr;
    UpdateUserDriver* userDriver = nullptr;
    Result<void> starting;
    bool canCheck = false;
    bool automatic = false;
    std::optional<WallTime> lastCheck;
    int starts = 0;
    int checks = 0;
    int automaticWrites = 0;
};

class FakeUserNotifications : public UserNotifications {
public:
    void requestAuthorization(std::function<void(bool)> done) override
    {
        ++requests;
        done(granted);
    }
    void post(NotificationRequest const& request) override { delivered.push_back(request); }
    void removeDelivered(std::string const& identifier) override
    {
        std::erase_if(delivered, [&](auto const& request) { return request.identifier == identifier; });
    }

    bool granted = true;
    int requests = 0;
    std::vector<NotificationRequest> delivered;
};

} // namespace zv::fakes
