#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"
#include "platform/macos/session/SessionEventCodes.h"

#import <Carbon/Carbon.h>
#import <CoreServices/CoreServices.h>

namespace zv {

namespace {

// Apple event numbers, as the system's headers name them.
constexpr std::int16_t autoGenerateReturnID = -1; // kAutoGenerateReturnID
constexpr std::int32_t anyTransactionID = 0; // kAnyTransactionID
static_assert(NSAppleEventSendNoReply == 1);
static_assert(sessionEventClass == kCoreEventClass && codeOf(SessionEvent::sleep) == kAESleep);
static_assert(codeOf(SessionEvent::askToRestart) == kAEShowRestartDialog && codeOf(SessionEvent::askToShutDown) == kAEShowShutdownDialog);
static_assert(codeOf(SessionEvent::restart) == kAERestart && codeOf(SessionEvent::shutDown) == kAEShutDown);
static_assert(codeOf(SessionEvent::askToLogOut) == kAELogOut && codeOf(SessionEvent::logOut) == kAEReallyLogOut);

class LoginWindowEvents : public SessionEvents {
public:
    void send(SessionEvent wanted, std::chrono::seconds timeout, std::function<void(SessionEventOutcome)> done) override
    {
        NSAppleEventDescriptor* const target = [NSAppleEventDescriptor descriptorWithBundleIdentifier:@"com.apple.loginwindow"];
        NSAppleEventDescriptor* const event = [[NSAppleEventDescriptor alloc] initWithEventClass:sessionEventClass
                                                                                         eventID:codeOf(wanted)
                                                                                targetDescriptor:target
                                                                                        returnID:autoGenerateReturnID
                                                                                   transactionID:anyTransactionID];
        NSError* error = nil;
        bool const isSent = [event sendEventWithOptions:NSAppleEventSendNoReply timeout:static_cast<double>(timeout.count()) error:&error] != nil;
        done(isSent ? SessionEventOutcome {} : SessionEventOutcome { SessionEventOutcome::State::failed, error.code });
    }
};

class AppleScripts : public ScriptRunner {
public:
    void run(Script const& script, std::function<void(ScriptOutcome)> done) override { done(execute(script.source)); }

private:
    static ScriptOutcome execute(std::string const& source)
    {
        NSAppleScript* const script = [[NSAppleScript alloc] initWithSource:toNSString(source)];
        if (!script)
            return { ScriptOutcome::State::notCompiled };
        NSDictionary* error = nil;
        [script executeAndReturnError:&error];
        if (!error)
            return {};
        ScriptOutcome outcome { ScriptOutcome::State::failed };
        id const number = [error objectForKey:NSAppleScriptErrorNumber];
        id const message = [error objectForKey:NSAppleScriptErrorMessage];
        if ([number isKindOfClass:[NSNumber class]])
            outcome.errorNumber = [number longLongValue];
        if ([message isKindOfClass:[NSString class]])
            outcome.errorMessage = fromNSString(message);
        return outcome;
    }
};

} // namespace

std::unique_ptr<SessionEvents> makeSessionEvents() { return std::make_unique<LoginWindowEvents>(); }

std::unique_ptr<ScriptRunner> makeScriptRunner() { return std::make_unique<AppleScripts>(); }

} // namespace zv
