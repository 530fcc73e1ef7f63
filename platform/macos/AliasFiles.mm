#import "platform/macos/Conversions.h"
#include "platform/macos/Factories.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace zv {

namespace {

/// Takes the name by making an empty file that was not there before; the alias is then
/// written in its place, so that nothing of another's is ever replaced.
std::optional<AliasFailure> takeName(Url const& place)
{
    int const file = open(place.path().c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    if (file < 0)
        return AliasFailure { errno == EEXIST, std::strerror(errno) };
    close(file);
    return std::nullopt;
}

class MacAliasFiles : public AliasFiles {
public:
    MaybeFailure<AliasFailure> createAlias(Url const& target, Url const& place) override
    {
        NSError* error = nil;
        NSData* const data = [toNSURL(target) bookmarkDataWithOptions:NSURLBookmarkCreationSuitableForBookmarkFile
                                       includingResourceValuesForKeys:nil
                                                        relativeToURL:nil
                                                                error:&error];
        if (!data)
            return AliasFailure { false, describe(error) };
        if (auto const failure = takeName(place))
            return failure;
        if ([NSURL writeBookmarkData:data toURL:toNSURL(place) options:0 error:&error])
            return std::nullopt;
        unlink(place.path().c_str());
        return AliasFailure { false, describe(error) };
    }
};

} // namespace

std::unique_ptr<AliasFiles> makeAliasFiles()
{
    return std::make_unique<MacAliasFiles>();
}

} // namespace zv
