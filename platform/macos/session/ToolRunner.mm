#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

#include <atomic>

namespace zv {

namespace {

std::string readToEnd(NSFileHandle* handle)
{
    NSData* const data = [handle readDataToEndOfFileAndReturnError:nullptr];
    return { static_cast<char const*>(data.bytes), data.length };
}

/// Ends the tool when its time is over. Costs one sleeping thread meanwhile.
class Watchdog {
public:
    Watchdog(NSTask* task, std::chrono::milliseconds timeout)
        : m_state(std::make_shared<State>())
    {
        auto const state = m_state;
        double const seconds = std::chrono::duration<double>(timeout).count();
        [NSThread detachNewThreadWithBlock:^{
            @autoreleasepool {
                [state->wait lock];
                NSDate* const end = [NSDate dateWithTimeIntervalSinceNow:seconds];
                while (!state->isCancelled && [state->wait waitUntilDate:end]) { }
                bool const isOver = !state->isCancelled;
                [state->wait unlock];
                if (isOver)
                    [task terminate];
            }
        }];
    }
    ~Watchdog()
    {
        [m_state->wait lock];
        m_state->isCancelled = true;
        [m_state->wait signal];
        [m_state->wait unlock];
    }

private:
    struct State {
        NSCondition* wait = [[NSCondition alloc] init];
        bool isCancelled = false;
    };
    std::shared_ptr<State> m_state;
};

class MacToolRunner : public ToolRunner {
public:
    /// Waits on another thread than the main one: waiting turns the thread's run loop, and the
    /// main one would let timers and events in, in the middle of the caller.
    ToolResult run(ToolRequest const& request) override
    {
        if (!NSThread.isMainThread)
            return runHere(request);
        auto const result = std::make_shared<ToolResult>();
        NSConditionLock* const done = [[NSConditionLock alloc] initWithCondition:0];
        [NSThread detachNewThreadWithBlock:^{
            *result = runHere(request);
            [done lock];
            [done unlockWithCondition:1];
        }];
        [done lockWhenCondition:1];
        [done unlock];
        return std::move(*result);
    }

private:
    static ToolResult runHere(ToolRequest const& request)
    {
        @autoreleasepool {
            if (![NSFileManager.defaultManager isExecutableFileAtPath:toNSString(request.path)])
                return {};
            return launch(request);
        }
    }

    static NSTask* taskFor(ToolRequest const& request)
    {
        NSTask* const task = [[NSTask alloc] init];
        NSMutableArray* const arguments = [NSMutableArray array];
        for (auto const& argument : request.arguments)
            [arguments addObject:toNSString(argument)];
        task.executableURL = toNSURL(Url::fromPath(request.path));
        task.arguments = arguments;
        task.standardInput = NSFileHandle.fileHandleWithNullDevice;
        return task;
    }

    static ToolResult launch(ToolRequest const& request)
    {
        NSTask* const task = taskFor(request);
        NSPipe* const output = [NSPipe pipe];
        NSPipe* const errors = [NSPipe pipe];
        bool const isMerged = request.output == ToolOutput::capturedWithErrors;
        if (request.output == ToolOutput::discarded)
            task.standardOutput = NSFileHandle.fileHandleWithNullDevice;
        else
            task.standardOutput = output;
        task.standardError = isMerged ? output : errors;
        if (![task launchAndReturnError:nullptr])
            return {};

        std::optional<Watchdog> watchdog;
        if (request.timeout)
            watchdog.emplace(task, *request.timeout);
        ToolResult result;
        drain(request.output == ToolOutput::discarded ? nil : output, isMerged ? nil : errors, result);
        [task waitUntilExit];
        watchdog.reset();
        result.end = task.terminationReason == NSTaskTerminationReasonUncaughtSignal ? ToolResult::End::signalled : ToolResult::End::exited;
        result.status = task.terminationStatus;
        return result;
    }

    /// Reads both pipes at once: a tool that fills one while the other is read would wait for ever.
    static void drain(NSPipe* output, NSPipe* errors, ToolResult& result)
    {
        auto const errorText = std::make_shared<std::string>();
        NSConditionLock* const done = [[NSConditionLock alloc] initWithCondition:errors ? 0 : 1];
        if (errors) {
            [NSThread detachNewThreadWithBlock:^{
                @autoreleasepool {
                    *errorText = readToEnd(errors.fileHandleForReading);
                    [done lock];
                    [done unlockWithCondition:1];
                }
            }];
        }
        if (output)
            result.output = readToEnd(output.fileHandleForReading);
        [done lockWhenCondition:1];
        [done unlock];
        result.errorOutput = *errorText;
    }
};

} // namespace

std::shared_ptr<ToolRunner> makeToolRunner() { return std::make_shared<MacToolRunner>(); }

} // namespace zv
