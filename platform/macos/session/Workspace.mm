#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

#include "base/Log.h"

#include <algorithm>

namespace zv {

namespace {

/// The application's name as the Finder shows it, without its ending.
std::string nameOf(NSURL* application)
{
    NSString* const shown = [NSFileManager.defaultManager displayNameAtPath:application.path];
    return fromNSString([shown.pathExtension isEqualToString:@"app"] ? shown.stringByDeletingPathExtension : shown);
}

std::vector<InstalledApplication> applicationsFor(Url const& file)
{
    NSURL* const located = toNSURL(file);
    std::vector<InstalledApplication> found;
    auto const add = [&found](NSURL* application) {
        auto const url = application ? std::optional(fromNSURL(application)) : std::nullopt;
        if (url && std::none_of(found.begin(), found.end(), [&](auto const& known) { return known.file == *url; }))
            found.push_back({ nameOf(application), *url });
    };
    if ([located.pathExtension isEqualToString:@"app"])
        return found;
    add([NSWorkspace.sharedWorkspace URLForApplicationToOpenURL:located]);
    for (NSURL* application in [NSWorkspace.sharedWorkspace URLsForApplicationsToOpenURL:located])
        add(application);
    return found;
}

void openFile(Url const& file, NSURL* application)
{
    [NSWorkspace.sharedWorkspace openURLs:@[ toNSURL(file) ]
                     withApplicationAtURL:application
                            configuration:[NSWorkspaceOpenConfiguration configuration]
                        completionHandler:nil];
}

Result<void> transferFile(Url const& file, Url const& place, FileTransfer how)
{
    NSFileManager* const files = [[NSFileManager alloc] init];
    NSURL* const from = toNSURL(file);
    NSURL* const to = toNSURL(place);
    NSError* error = nil;
    if (how == FileTransfer::link)
        return resultOf([files createSymbolicLinkAtPath:[to path] withDestinationPath:[from path] error:&error] != NO, error);
    if (how == FileTransfer::copy)
        return resultOf([files copyItemAtURL:from toURL:to error:&error] != NO, error);
    return resultOf([files moveItemAtURL:from toURL:to error:&error] != NO, error);
}

class MacWorkspace : public Workspace {
public:
    explicit MacWorkspace(Tasks& tasks)
        : m_tasks(tasks)
    {
    }
    void open(Url const& url) override
    {
        NSURL* const given = toNSURL(url);
        if (!given || ![NSWorkspace.sharedWorkspace openURL:given])
            logLine("could not open " + url.toString());
    }

    /// Never asked to: open() leaves the question to the system, which asks by itself.
    void startUntrusted(UntrustedStart const& start, StartConsent) override { open(start.file); }

    void reveal(Url const& fileURL) override { [NSWorkspace.sharedWorkspace activateFileViewerSelectingURLs:@[ toNSURL(fileURL) ]]; }

    /// Asks on a thread of its own: the file may lie on a server that does not answer.
    void findApplicationsFor(Url const& file, std::function<void(std::vector<InstalledApplication>)> done) override
    {
        m_tasks.runDetached([file, done = std::move(done)]() mutable -> std::function<void()> {
            @autoreleasepool {
                return [done = std::move(done), found = applicationsFor(file)] { done(found); };
            }
        });
    }

    void openWith(Url const& file, Url const& application) override { openFile(file, toNSURL(application)); }

    void moveToTrash(Url const& file, std::function<void(Result<void>)> done) override
    {
        // The handler runs on a queue of the system's choice.
        [NSWorkspace.sharedWorkspace recycleURLs:@[ toNSURL(file) ]
                               completionHandler:^(NSDictionary*, NSError* error) {
                                   auto const moved = resultOf(!error, error);
                                   performOnMain([done, moved] { done(moved); });
                               }];
    }

    void transfer(Url const& file, Url const& place, FileTransfer how, std::function<void(Result<void>)> done) override
    {
        m_tasks.runDetached([file, place, how, done = std::move(done)]() mutable -> std::function<void()> {
            @autoreleasepool {
                return [done = std::move(done), result = transferFile(file, place, how)] { done(result); };
            }
        });
    }

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

private:
    Tasks& m_tasks;
};

class MacClipboard : public Clipboard {
public:
    void setText(std::string const& text) override
    {
        NSPasteboard* const pasteboard = NSPasteboard.generalPasteboard;
        [pasteboard clearContents];
        [pasteboard setString:toNSString(text) forType:NSPasteboardTypeString];
    }
    void setFiles(std::vector<Url> const& files) override
    {
        NSMutableArray* const urls = [NSMutableArray array];
        for (auto const& file : files)
            [urls addObject:toNSURL(file)];
        NSPasteboard* const pasteboard = NSPasteboard.generalPasteboard;
        [pasteboard clearContents];
        [pasteboard writeObjects:urls];
    }
};

/// Leaves all places to the core: each has the same address on every Mac.
class MacDesktopCommands : public DesktopCommands {
public:
    void open(SystemPlace, std::function<void(PlaceOutcome)> done) override { done(PlaceOutcome::hasFixedTarget); }
    void openTerminal(Url const& folder, std::function<void(PlaceOutcome)> done) override
    {
        NSURL* const terminal = [NSWorkspace.sharedWorkspace URLForApplicationWithBundleIdentifier:@"com.apple.Terminal"];
        if (terminal)
            openFile(folder, terminal);
        done(terminal ? PlaceOutcome::opened : PlaceOutcome::notFound);
    }
};

} // namespace

std::unique_ptr<Workspace> makeWorkspace(Tasks& tasks) { return std::make_unique<MacWorkspace>(tasks); }

std::unique_ptr<Clipboard> makeClipboard() { return std::make_unique<MacClipboard>(); }

std::unique_ptr<DesktopCommands> makeDesktopCommands() { return std::make_unique<MacDesktopCommands>(); }

} // namespace zv
