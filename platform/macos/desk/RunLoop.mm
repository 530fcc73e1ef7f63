#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

@interface ZVTimerTarget : NSObject {
    std::function<void()> _fire;
}
- (instancetype)initWithFunction:(std::function<void()>)fire;
- (void)fired:(NSTimer*)timer;
@end

@implementation ZVTimerTarget
- (instancetype)initWithFunction:(std::function<void()>)fire
{
    if ((self = [super init]))
        _fire = std::move(fire);
    return self;
}
- (void)fired:(NSTimer*)timer
{
    auto const running = _fire; // outlives the timer that it may destroy
    running();
}
@end

namespace zv {

namespace {

class MacClock : public Clock {
public:
    WallTime now() const override { return std::chrono::system_clock::now(); }
    Instant monotonic() const override { return std::chrono::steady_clock::now(); }
};

/// Owns a timer of the system's, whose target holds the callback.
class MacTimer : public Timer {
public:
    MacTimer(std::chrono::milliseconds interval, bool repeats, std::function<void()> fire)
    {
        ZVTimerTarget* const target = [[ZVTimerTarget alloc] initWithFunction:std::move(fire)];
        double const seconds = std::chrono::duration<double>(interval).count();
        m_timer = [NSTimer timerWithTimeInterval:seconds target:target selector:@selector(fired:) userInfo:nil repeats:repeats ? YES : NO];
        [NSRunLoop.mainRunLoop addTimer:m_timer forMode:NSRunLoopCommonModes];
        if (repeats) // else slowed down to save power while no window is in sight
            m_activity = [NSProcessInfo.processInfo beginActivityWithOptions:NSActivityUserInitiatedAllowingIdleSystemSleep reason:@"A timer repeats"];
    }
    ~MacTimer() override
    {
        [m_timer invalidate];
        if (m_activity)
            [NSProcessInfo.processInfo endActivity:m_activity];
    }

private:
    NSTimer* m_timer;
    id m_activity = nil;
};

class MacTimers : public Timers {
public:
    std::unique_ptr<Timer> every(std::chrono::milliseconds interval, std::function<void()> tick) override
    {
        return std::make_unique<MacTimer>(interval, true, std::move(tick));
    }
    std::unique_ptr<Timer> after(std::chrono::milliseconds delay, std::function<void()> fire) override
    {
        return std::make_unique<MacTimer>(delay, false, std::move(fire));
    }
};

class MacTasks : public Tasks {
public:
    MacTasks()
        : m_userQueue([[NSOperationQueue alloc] init])
        , m_utilityQueue([[NSOperationQueue alloc] init])
    {
        m_userQueue.qualityOfService = NSQualityOfServiceUserInitiated;
        m_utilityQueue.qualityOfService = NSQualityOfServiceUtility;
        m_utilityQueue.maxConcurrentOperationCount = 1;
    }

    void runInBackground(TaskPriority priority, std::function<void()> work) override
    {
        NSBlockOperation* const operation = [NSBlockOperation blockOperationWithBlock:^{
            @autoreleasepool {
                work();
            }
        }];
        [(priority == TaskPriority::utility ? m_utilityQueue : m_userQueue) addOperation:operation];
    }

    void runDetached(std::function<std::function<void()>()> work) override
    {
        [NSThread detachNewThreadWithBlock:^{
            @autoreleasepool {
                auto then = work();
                if (then)
                    performOnMain(std::move(then));
            }
        }];
    }

    void runOnMain(std::function<void()> work) override { performOnMain(std::move(work)); }

private:
    NSOperationQueue* m_userQueue;
    NSOperationQueue* m_utilityQueue;
};

} // namespace

std::unique_ptr<Clock> makeClock() { return std::make_unique<MacClock>(); }

std::unique_ptr<Timers> makeTimers() { return std::make_unique<MacTimers>(); }

std::unique_ptr<Tasks> makeTasks() { return std::make_unique<MacTasks>(); }

/// Turns the loop a moment at a time, as a timer that fires does not end a turn.
void turnRunLoopUntil(std::function<bool()> const& isDone, std::chrono::milliseconds limit)
{
    constexpr double moment = 0.02;
    NSDate* const end = [NSDate dateWithTimeIntervalSinceNow:std::chrono::duration<double>(limit).count()];
    while (!isDone() && end.timeIntervalSinceNow > 0) {
        @autoreleasepool {
            NSDate* const next = [NSDate dateWithTimeIntervalSinceNow:moment];
            if (![NSRunLoop.mainRunLoop runMode:NSDefaultRunLoopMode beforeDate:next])
                [NSThread sleepUntilDate:next]; // a loop with nothing to wait for returns at once
        }
    }
}

} // namespace zv
