#import "platform/macos/program/OwnExecutable.h"

#include <climits>
#include <cstdint>
#include <cstdlib>
#include <mach-o/dyld.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zv {

void leaveLink(char** arguments)
{
    char path[PATH_MAX];
    char linked[PATH_MAX];
    std::uint32_t size = sizeof path;
    struct stat status { };
    bool const isLink = _NSGetExecutablePath(path, &size) == 0 && ::lstat(path, &status) == 0 && S_ISLNK(status.st_mode);
    if (isLink && ::realpath(path, linked))
        ::execv(linked, arguments); // returns only if it failed
}

} // namespace zv
