#import "platform/macos/program/MessagePortServer.h"

#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"

#include <chrono>

namespace zv {

namespace {

constexpr double patience = 5; // seconds, each for the request and for the answer
constexpr std::chrono::seconds patienceWithStart { 15 };

CFStringRef portName() { return CFSTR("org.zanthevell.ZantheVell.commands"); }

NSData* dataOf(std::string const& text) { return [NSData dataWithBytes:text.data() length:text.size()]; }

std::string textOf(NSData* data) { return { static_cast<char const*>(data.bytes), data.length }; }

class PortPost : public MessagePort {
public:
    bool isRunning() const override
    {
        CFMessagePortRef const port = CFMessagePortCreateRemote(kCFAllocatorDefault, portName());
        if (port)
            CFRelease(port);
        return port != nullptr;
    }

    std::optional<std::string> ask(std::string const& request) override
    {
        CFMessagePortRef const port = CFMessagePortCreateRemote(kCFAllocatorDefault, portName());
        if (!port)
            return std::nullopt;
        CFDataRef answer = nullptr;
        SInt32 const status = CFMessagePortSendRequest(port, 0, (__bridge CFDataRef)dataOf(request), patience, patience, kCFRunLoopDefaultMode, &answer);
        CFRelease(port);
        NSData* const data = answer ? CFBridgingRelease(answer) : nil;
        return status == kCFMessagePortSuccess && data ? std::optional(textOf(data)) : std::nullopt;
    }

    Result<void> start() override
    {
        NSURL* const bundle = NSBundle.mainBundle.bundleURL;
        if (![bundle.pathExtension isEqualToString:@"app"])
            return Failure { "this command does not lie in an application." };
        auto const opened = std::make_shared<std::optional<Result<void>>>();
        NSWorkspaceOpenConfiguration* const configuration = [NSWorkspaceOpenConfiguration configuration];
        configuration.createsNewApplicationInstance = YES; // else this command could count as the instance
        [NSWorkspace.sharedWorkspace openApplicationAtURL:bundle
                                            configuration:configuration
                                        completionHandler:^(NSRunningApplication*, NSError* error) {
                                            auto const result = resultOf(!error, error);
                                            performOnMain([opened, result] { *opened = result; });
                                        }];
        auto const hasFailed = [&] { return *opened && !**opened; };
        turnRunLoopUntil([&] { return hasFailed() || isRunning(); }, patienceWithStart);
        if (hasFailed())
            return **opened;
        if (isRunning())
            return {};
        return Failure { "it does not answer." };
    }
};

} // namespace

bool MessagePortServer::open()
{
    if (m_port)
        return true;
    CFMessagePortContext context { 0, this, nullptr, nullptr, nullptr };
    m_port = CFMessagePortCreateLocal(kCFAllocatorDefault, portName(), called, &context, nullptr);
    if (!m_port)
        return false;
    CFRunLoopSourceRef const source = CFMessagePortCreateRunLoopSource(kCFAllocatorDefault, m_port, 0);
    CFRunLoopAddSource(CFRunLoopGetMain(), source, kCFRunLoopCommonModes);
    CFRelease(source);
    return true;
}

void MessagePortServer::close()
{
    if (!m_port)
        return;
    CFMessagePortInvalidate(m_port);
    CFRelease(m_port);
    m_port = nullptr;
}

/// The system releases the returned data.
CFDataRef MessagePortServer::called(CFMessagePortRef, SInt32, CFDataRef request, void* owner)
{
    @autoreleasepool {
        auto const text = static_cast<MessagePortServer*>(owner)->m_answer(textOf((__bridge NSData*)request));
        return static_cast<CFDataRef>(CFBridgingRetain(dataOf(text)));
    }
}

std::unique_ptr<MessagePort> makeMessagePort() { return std::make_unique<PortPost>(); }

} // namespace zv
