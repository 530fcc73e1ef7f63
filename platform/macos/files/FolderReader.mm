#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"
#import "platform/macos/files/LinkTargets.h"
#import "platform/macos/files/ProgramFolders.h"
#import "platform/macos/files/Quarantine.h"

#include <sys/stat.h>
#include <unistd.h>

namespace zv {

namespace {

// The properties read for every child in the one pass.
NSArray* prefetchedKeys()
{
    return @[ NSURLIsDirectoryKey, NSURLIsPackageKey, NSURLIsHiddenKey, NSURLIsAliasFileKey, NSURLIsSymbolicLinkKey, NSURLLocalizedNameKey ];
}

bool flag(NSURL* url, NSString* key)
{
    NSNumber* value = nil;
    return [url getResourceValue:&value forKey:key error:nullptr] && value.boolValue;
}

FolderReadFailure failureOf(NSError* error)
{
    switch (error.code) {
    case NSFileReadNoPermissionError:
        return FolderReadFailure::notPermitted;
    case NSFileReadNoSuchFileError:
    case NSFileNoSuchFileError:
        return FolderReadFailure::notFound;
    default:
        return FolderReadFailure::failed;
    }
}

class MacFolderReader : public FolderReader {
public:
    Result<FolderContents, FolderReadFailure> read(Url const& folder, HiddenFiles hiddenFiles) const override
    {
        NSFileManager* const files = [[NSFileManager alloc] init];
        NSDirectoryEnumerationOptions const options = hiddenFiles == HiddenFiles::skipped ? NSDirectoryEnumerationSkipsHiddenFiles : 0;
        NSURL* const place = targetOfLinks(toNSURL(folder)); // listing follows neither a link nor an alias
        if (!place)
            return Failure { FolderReadFailure::notFound };
        NSError* error = nil;
        NSArray* const children = [files contentsOfDirectoryAtURL:place includingPropertiesForKeys:prefetchedKeys() options:options error:&error];
        if (!children)
            return Failure { failureOf(error) };
        FolderContents contents;
        for (NSURL* child in children)
            add(child, contents);
        return contents;
    }

    std::vector<std::int64_t> measure(Url const& folder, FolderContents const& contents, FileMeasure what) const override
    {
        std::vector<std::int64_t> measures;
        measures.reserve(contents.size());
        for (std::size_t i = 0; i < contents.size(); ++i)
            measures.push_back(measureOf(toNSURL(folder.appending(contents[i].name)), what));
        return measures;
    }

    bool isRemote(Url const& folder) const override { return leadsToRemoteVolume(folder.path()); }

    /// What is not to start unasked is the system's concern, which asks by itself.
    std::optional<NameDoubt> doubtAbout(Url const& file) const override
    {
        auto const path = file.path();
        if (leadsToRemoteVolume(file.parent().path()) || liesOnRemovableVolume(toNSURL(file.parent())))
            return NameDoubt::onForeignVolume;
        struct stat status { };
        if (lstat(path.c_str(), &status) != 0 || status.st_uid != geteuid())
            return NameDoubt::ofAnotherUser;
        bool const isAnItem = file.parent() == itemsFolder();
        return !isAnItem && wasDownloaded(path) ? std::optional(NameDoubt::downloaded) : std::nullopt;
    }

private:
    static std::int64_t measureOf(NSURL* file, FileMeasure what)
    {
        if (what == FileMeasure::size) {
            NSNumber* size = nil;
            return [file getResourceValue:&size forKey:NSURLFileSizeKey error:nullptr] ? size.longLongValue : 0;
        }
        NSDate* date = nil;
        NSString* const key = what == FileMeasure::dateAdded ? NSURLAddedToDirectoryDateKey : NSURLContentModificationDateKey;
        return [file getResourceValue:&date forKey:key error:nullptr] ? static_cast<std::int64_t>(date.timeIntervalSince1970 * 1e9) : 0;
    }

    static bool liesOnRemovableVolume(NSURL* folder) { return flag(folder, NSURLVolumeIsRemovableKey) || flag(folder, NSURLVolumeIsEjectableKey); }

    static void add(NSURL* child, FolderContents& contents)
    {
        std::string const name = fromNSString(child.lastPathComponent);
        NSString* localized = nil;
        [child getResourceValue:&localized forKey:NSURLLocalizedNameKey error:nullptr];
        bool const isLink = flag(child, NSURLIsSymbolicLinkKey) || flag(child, NSURLIsAliasFileKey);
        auto const shown = localized ? fromNSString(localized) : std::string();
        contents.add({ name, shown == name ? std::string_view() : std::string_view(shown), isLink ? traitsOfTarget(child) : traitsOf(child), isLink });
    }

    static FileTraits traitsOf(NSURL* url) { return { flag(url, NSURLIsDirectoryKey), flag(url, NSURLIsPackageKey) }; }

    static FileTraits traitsOfTarget(NSURL* link)
    {
        if (leadsToRemoteVolume(fromNSString(link.path)))
            return { link.pathExtension.length == 0, false };
        NSURL* const target = targetOfLinks(link);
        return target ? traitsOf(target) : FileTraits { .fault = FileFault::leadsNowhere };
    }
};

} // namespace

std::shared_ptr<FolderReader const> makeFolderReader() { return std::make_shared<MacFolderReader>(); }

} // namespace zv
