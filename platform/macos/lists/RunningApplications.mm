#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

namespace zv {

namespace {

/// The bundle's address, which all processes of an application share; without a bundle, the
/// process's number.
std::string idOf(NSRunningApplication* application)
{
    NSURL* const bundle = application.bundleURL;
    return bundle ? fromNSURL(bundle).toString() : std::to_string(application.processIdentifier);
}

class MacRunningApplications : public RunningApplications {
public:
    void list(std::function<void(List)> done) override
    {
        std::vector<RunningApplication> running;
        pid_t const own = [NSRunningApplication.currentApplication processIdentifier];
        for (NSRunningApplication* application in NSWorkspace.sharedWorkspace.runningApplications) {
            bool const isRegular = application.activationPolicy == NSApplicationActivationPolicyRegular;
            if (!isRegular || application.processIdentifier == own)
                continue;
            NSURL* const bundle = application.bundleURL;
            running.push_back({ idOf(application), fromNSString(application.localizedName), bundle ? std::optional(fromNSURL(bundle)) : std::nullopt });
        }
        done(std::move(running));
    }

    /// Opens a bundle, which brings its application forward with its windows, or starts it again.
    void activate(std::string const& id) override
    {
        auto const bundle = Url::parse(id);
        if (bundle && bundle->isFile()) {
            [NSWorkspace.sharedWorkspace openURL:toNSURL(*bundle)];
            return;
        }
        for (NSRunningApplication* application in NSWorkspace.sharedWorkspace.runningApplications) {
            if (idOf(application) == id)
                [application activateWithOptions:NSApplicationActivateAllWindows];
        }
    }

    void quit(std::string const& id) override
    {
        for (NSRunningApplication* application in [[NSWorkspace sharedWorkspace] runningApplications]) {
            if (idOf(application) == id)
                [application terminate];
        }
    }
};

std::vector<Volume> mountedVolumes()
{
    NSArray* const keys = @[ NSURLVolumeLocalizedNameKey ];
    std::vector<Volume> volumes;
    for (NSURL* root in [NSFileManager.defaultManager mountedVolumeURLsIncludingResourceValuesForKeys:keys options:NSVolumeEnumerationSkipHiddenVolumes]) {
        NSString* label = nil;
        [root getResourceValue:&label forKey:NSURLVolumeLocalizedNameKey error:nullptr];
        volumes.push_back({ fromNSURL(root), fromNSString(label), [root.path isEqualToString:@"/"] != NO });
    }
    return volumes;
}

/// Asks on a thread of its own: for its name a volume may ask its server, which may hang.
class MacVolumes : public Volumes {
public:
    explicit MacVolumes(Tasks& tasks)
        : m_tasks(tasks)
    {
    }
    void list(std::function<void(std::vector<Volume>)> done) override
    {
        m_tasks.runDetached([done = std::move(done)]() mutable -> std::function<void()> {
            @autoreleasepool {
                return [done = std::move(done), volumes = mountedVolumes()] { done(volumes); };
            }
        });
    }

private:
    Tasks& m_tasks;
};

} // namespace

std::unique_ptr<RunningApplications> makeRunningApplications() { return std::make_unique<MacRunningApplications>(); }

std::unique_ptr<Volumes> makeVolumes(Tasks& tasks) { return std::make_unique<MacVolumes>(tasks); }

} // namespace zv
