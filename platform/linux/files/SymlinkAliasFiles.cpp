#include "platform/linux/files/SymlinkAliasFiles.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace zv {

namespace {

Failure<AliasFailure> lastFailure()
{
    auto const code = errno;
    return { { code == EEXIST, std::generic_category().message(code) } };
}

} // namespace

Result<void, AliasFailure> SymlinkAliasFiles::createAlias(Url const& target, Url const& place)
{
    struct stat information { };
    auto const path = target.path();
    if (::lstat(path.c_str(), &information) != 0)
        return lastFailure();
    // symlink() never replaces anything.
    if (::symlink(path.c_str(), place.path().c_str()) != 0)
        return lastFailure();
    return {};
}

} // namespace zv
