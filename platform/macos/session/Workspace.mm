#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

#include "base/Log.h"

namespace zv {

namespace {

class MacWorkspace : public Workspace {
public:
    void open(Url const& url) override
    {
        NSURL* const given = toNSURL(url);
        if (!given || ![NSWorkspace.sharedWorkspace openURL:given])
            logLine("could not open " + url.toString());
    }

    /// Never asked to: open() leaves the question to the system, which asks by itself.
    void startUntrusted(UntrustedStart const& start, StartConsent) override { open(start.file); }

    void reveal(Url const& fileURL) override { [NSWorkspace.sharedWorkspace activateFileViewerSelectingURLs:@[ toNSURL(fileURL) ]]; }

    std::optional<Url> applicationWithIdentifier(std::string_view identifier) const override
    {
        NSURL* const found = [NSWorkspace.sharedWorkspace URLForApplicationWithBundleIdentifier:toNSString(identifier)];
        return found ? std::optional(fromNSURL(found)) : std::nullopt;
    }

    void openNewInstance(Url const& application, std::function<void(Result<void>)> done) override
    {
        NSWorkspaceOpenConfiguration* const configuration = [NSWorkspaceOpenConfiguration configuration];
        configuration.createsNewApplicationInstance = YES;
        // The handler runs on a queue of the system's choice.
        [NSWorkspace.sharedWorkspace openApplicationAtURL:toNSURL(application)
                                            configuration:configuration
                                        completionHandler:^(NSRunningApplication*, NSError* error) {
                                            auto const started = resultOf(!error, error);
                                            performOnMain([done, started] { done(started); });
                                        }];
    }
};

class MacClipboard : public Clipboard {
public:
    void setText(std::string const& text) override
    {
        NSPasteboard* const pasteboard = NSPasteboard.generalPasteboard;
        [pasteboard clearContents];
        [pasteboard setString:toNSString(text) forType:NSPasteboardTypeString];
    }
};

/// Leaves all places to the core: each has the same address on every Mac.
class MacDesktopCommands : public DesktopCommands {
public:
    void open(SystemPlace, std::function<void(PlaceOutcome)> done) override { done(PlaceOutcome::hasFixedTarget); }
};

} // namespace

std::unique_ptr<Workspace> makeWorkspace() { return std::make_unique<MacWorkspace>(); }

std::unique_ptr<Clipboard> makeClipboard() { return std::make_unique<MacClipboard>(); }

std::unique_ptr<DesktopCommands> makeDesktopCommands() { return std::make_unique<MacDesktopCommands>(); }

} // namespace zv
