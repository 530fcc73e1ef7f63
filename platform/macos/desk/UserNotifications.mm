#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

#include "base/Lifetime.h"
#include "base/Log.h"

#import <UserNotifications/UserNotifications.h>

static_assert((UNAuthorizationOptionAlert | UNAuthorizationOptionSound) == 6);
static_assert((UNNotificationPresentationOptionBanner | UNNotificationPresentationOptionSound) == 18);

@interface ZVNotificationDelegate : NSObject <UNUserNotificationCenterDelegate> {
    std::function<void(std::string const&)> _activated;
}
- (instancetype)initWithFunction:(std::function<void(std::string const&)>)activated;
@end

@implementation ZVNotificationDelegate
- (instancetype)initWithFunction:(std::function<void(std::string const&)>)activated
{
    if ((self = [super init]))
        _activated = std::move(activated);
    return self;
}
- (void)userNotificationCenter:(UNUserNotificationCenter*)center
       willPresentNotification:(UNNotification*)notification
         withCompletionHandler:(void (^)(UNNotificationPresentationOptions))handler
{
    handler(static_cast<UNNotificationPresentationOptions>(UNNotificationPresentationOptionBanner | UNNotificationPresentationOptionSound));
}
- (void)userNotificationCenter:(UNUserNotificationCenter*)center
    didReceiveNotificationResponse:(UNNotificationResponse*)response
             withCompletionHandler:(void (^)(void))handler
{
    auto const activated = _activated;
    auto const identifier = zv::fromNSString(response.notification.request.identifier);
    zv::performOnMain([activated, identifier] { activated(identifier); });
    handler();
}
@end

namespace zv {

namespace {

/// Logs the error: only it says why the system refuses programs signed for one machine only.
void tellOf(NSError* error)
{
    if (error)
        logLine("notifications: " + describe(error));
}

/// Grants nothing outside a bundle, where the notification centre does not exist.
class MacUserNotifications : public UserNotifications {
public:
    MacUserNotifications()
    {
        if (!NSBundle.mainBundle.bundleIdentifier)
            return;
        m_center = [UNUserNotificationCenter currentNotificationCenter];
        auto const activated = m_lifetime.guard([this](std::string const& identifier) {
            if (onActivated)
                onActivated(identifier);
        });
        m_delegate = [[ZVNotificationDelegate alloc] initWithFunction:activated];
        m_center.delegate = m_delegate;
    }
    ~MacUserNotifications() override { m_center.delegate = nil; }

    void requestAuthorization(std::function<void(bool)> done) override
    {
        if (!m_center)
            return done(false);
        auto const options = static_cast<UNAuthorizationOptions>(UNAuthorizationOptionAlert | UNAuthorizationOptionSound);
        [m_center requestAuthorizationWithOptions:options
                                completionHandler:^(BOOL granted, NSError* error) {
                                    tellOf(error);
                                    bool const isGranted = granted && !error;
                                    performOnMain([done, isGranted] { done(isGranted); });
                                }];
    }

    void post(NotificationRequest const& request) override
    {
        UNMutableNotificationContent* const content = [[UNMutableNotificationContent alloc] init];
        content.title = toNSString(request.title);
        content.body = toNSString(request.body);
        content.sound = UNNotificationSound.defaultSound;
        UNNotificationRequest* const made = [UNNotificationRequest requestWithIdentifier:toNSString(request.identifier) content:content trigger:nil];
        [m_center addNotificationRequest:made withCompletionHandler:^(NSError* error) { tellOf(error); }];
    }

    void removeDelivered(std::string const& identifier) override { [m_center removeDeliveredNotificationsWithIdentifiers:@[ toNSString(identifier) ]]; }

private:
    UNUserNotificationCenter* m_center = nil;
    ZVNotificationDelegate* m_delegate = nil; // the centre holds it weakly
    Lifetime m_lifetime;
};

} // namespace

std::unique_ptr<UserNotifications> makeUserNotifications() { return std::make_unique<MacUserNotifications>(); }

} // namespace zv
