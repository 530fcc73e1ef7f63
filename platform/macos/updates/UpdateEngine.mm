#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/cocoa/KeyObserver.h"
#import "platform/macos/files/ProgramFolders.h"
#import "platform/macos/updates/SparkleInterface.h"

#include "app/updates/UpdateTexts.h"
#include "base/Lifetime.h"

namespace {

NSString* const canCheckKey = @"canCheckForUpdates";
NSString* const automaticKey = @"automaticallyChecksForUpdates";

} // namespace

/// The framework's delegate, with methods of the names that it looks for.
@interface ZVUpdateDelegate : NSObject {
    zv::UpdateChannels* _channels;
    zv::UpdateUserDriver* _driver;
}
- (instancetype)initWithChannels:(zv::UpdateChannels&)channels driver:(zv::UpdateUserDriver&)driver;
@end

@implementation ZVUpdateDelegate

static zv::UpdateItem itemOf(id<ZVAppcastItem> update) { return { zv::fromNSString(update.displayVersionString) }; }

- (instancetype)initWithChannels:(zv::UpdateChannels&)channels driver:(zv::UpdateUserDriver&)driver
{
    if (!(self = [super init]))
        return nil;
    _channels = &channels;
    _driver = &driver;
    return self;
}

- (NSSet<NSString*>*)allowedChannelsForUpdater:(id)updater
{
    NSMutableSet<NSString*>* const channels = [NSMutableSet set];
    for (auto const& channel : _channels->allowedChannels())
        [channels addObject:zv::toNSString(channel)];
    return channels;
}

- (BOOL)supportsGentleScheduledUpdateReminders
{
    return _driver->supportsGentleScheduledUpdateReminders() ? YES : NO;
}
- (BOOL)standardUserDriverShouldHandleShowingScheduledUpdate:(id<ZVAppcastItem>)update andInImmediateFocus:(BOOL)focus
{
    return _driver->shouldHandleShowingScheduledUpdate(itemOf(update), focus != NO) ? YES : NO;
}
- (void)standardUserDriverWillHandleShowingUpdate:(BOOL)shows forUpdate:(id<ZVAppcastItem>)update state:(id)state
{
    _driver->willHandleShowingUpdate(shows != NO, itemOf(update));
}
- (void)standardUserDriverDidReceiveUserAttentionForUpdate:(id<ZVAppcastItem>)update
{
    _driver->didReceiveUserAttention(itemOf(update));
}
- (void)standardUserDriverWillFinishUpdateSession
{
    _driver->willFinishUpdateSession();
}

@end

namespace zv {

namespace {

class SparkleEngine : public UpdateEngine {
public:
    SparkleEngine(Class controllerClass, UpdateChannels& channels, UpdateUserDriver& driver)
        : m_delegate([[ZVUpdateDelegate alloc] initWithChannels:channels driver:driver])
        , m_controller([(id<ZVUpdaterController>)[controllerClass alloc] initWithStartingUpdater:NO updaterDelegate:m_delegate userDriverDelegate:m_delegate])
        , m_updater(m_controller.updater)
    {
        auto const canCheck = m_lifetime.guard([this] { tell(onCanCheckChanged); });
        m_canCheck = watch(canCheckKey, canCheck);
        m_automatic = watch(automaticKey, m_lifetime.guard([this] { tell(onAutomaticallyChecksChanged); }));
        performOnMain(canCheck); // the first value counts as a change
    }
    ~SparkleEngine() override
    {
        [m_canCheck stop];
        [m_automatic stop];
    }

    Result<void> start() override
    {
        NSError* __autoreleasing error = nil;
        BOOL const started = [m_updater startUpdater:&error];
        return resultOf(started, error);
    }
    void checkForUpdates() override { [m_updater checkForUpdates]; }
    bool canCheckForUpdates() const override { return m_updater.canCheckForUpdates != NO; }
    bool automaticallyChecksForUpdates() const override { return m_updater.automaticallyChecksForUpdates != NO; }
    void setAutomaticallyChecksForUpdates(bool automatically) override { m_updater.automaticallyChecksForUpdates = automatically ? YES : NO; }
    std::optional<WallTime> lastUpdateCheckDate() const override
    {
        NSDate* const date = m_updater.lastUpdateCheckDate;
        if (!date)
            return std::nullopt;
        std::chrono::duration<double> const seconds(date.timeIntervalSince1970);
        return WallTime(std::chrono::duration_cast<WallTime::duration>(seconds));
    }

private:
    ZVKeyObserver* watch(NSString* key, std::function<void()> changed)
    {
        ZVKeyObserver* const observer = [[ZVKeyObserver alloc] initWithObject:(NSObject*)m_updater changed:std::move(changed)];
        [observer watch:key];
        return observer;
    }
    static void tell(std::function<void()> const& callback)
    {
        if (callback)
            callback();
    }

    ZVUpdateDelegate* m_delegate;
    id<ZVUpdaterController> m_controller;
    id<ZVUpdater> m_updater;
    ZVKeyObserver* m_canCheck = nil;
    ZVKeyObserver* m_automatic = nil;
    Lifetime m_lifetime;
};

/// The engine of a program built without the framework, in which all but updates works.
class NoUpdateEngine : public UpdateEngine {
public:
    explicit NoUpdateEngine(std::string problem)
        : m_problem(std::move(problem))
    {
    }
    Result<void> start() override { return Failure { m_problem }; }
    void checkForUpdates() override { }
    bool canCheckForUpdates() const override { return false; }
    bool automaticallyChecksForUpdates() const override { return false; }
    void setAutomaticallyChecksForUpdates(bool) override { }
    std::optional<WallTime> lastUpdateCheckDate() const override { return std::nullopt; }

private:
    std::string m_problem;
};

Class controllerClass()
{
    NSString* const path = updateFramework();
    NSBundle* const framework = path ? [NSBundle bundleWithPath:path] : nil;
    return [framework load] ? NSClassFromString(@"SPUStandardUpdaterController") : Nil;
}

} // namespace

std::unique_ptr<UpdateEngine> makeUpdateEngine(UpdateChannels& channels, UpdateUserDriver& userDriver)
{
    if (Class const found = controllerClass())
        return std::make_unique<SparkleEngine>(found, channels, userDriver);
    return std::make_unique<NoUpdateEngine>(tr(updateTexts::noFramework));
}

} // namespace zv
