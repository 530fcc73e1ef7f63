#include "platform/linux/entries/Startable.h"

#include "base/Url.h"
#include "platform/linux/entries/PackageName.h"
#include "platform/linux/posix/WholeFiles.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace zv {

namespace {

constexpr std::string_view programExtensions[] = { "bin", "elf", "run", "x86_64" };
constexpr std::size_t beginningSize = 4;

std::string lowerCasedExtension(std::string_view name)
{
    std::string extension(pathExtension(name));
    std::transform(extension.begin(), extension.end(), extension.begin(), [](unsigned char c) { return std::tolower(c); });
    return extension;
}

/// The end of a version, as in "tool-1.2", is no document's extension.
bool isProgramExtension(std::string_view extension)
{
    bool const isNumber = std::all_of(extension.begin(), extension.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
    return isNumber || std::find(std::begin(programExtensions), std::end(programExtensions), extension) != std::end(programExtensions);
}

bool beginsAsProgram(std::string const& path)
{
    std::string beginning;
    if (auto const file = openPlainFile(path.c_str())) {
        auto const take = [&beginning](std::string_view piece) {
            beginning += piece;
            return beginning.size() < beginningSize;
        };
        (void)readInPieces(*file, take, beginningSize);
    }
    return beginning.starts_with("\177ELF") || beginning.starts_with("#!");
}

bool isProgram(std::string const& path, mode_t mode)
{
    auto const extension = lowerCasedExtension(lastPathComponent(path));
    bool const isImage = extension == "appimage"; // asks for its executable bit when it lacks it
    bool const mayRun = isImage || ((mode & (S_IXUSR | S_IXGRP | S_IXOTH)) != 0 && isProgramExtension(extension));
    return mayRun && beginsAsProgram(path);
}

} // namespace

std::optional<Startable> startableAt(std::string const& path)
{
    struct stat status { };
    if (::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    auto const name = lastPathComponent(path);
    if (S_ISDIR(status.st_mode)) {
        auto const program = path + "/AppRun";
        bool const isApplication = isPackageFolderName(name) && ::access(program.c_str(), X_OK) == 0;
        return isApplication ? std::optional(Startable { Startable::Kind::folder, program }) : std::nullopt;
    }
    if (!S_ISREG(status.st_mode))
        return std::nullopt;
    if (isApplicationEntryName(name))
        return Startable { Startable::Kind::entry, path };
    return isProgram(path, status.st_mode) ? std::optional(Startable { Startable::Kind::program, path }) : std::nullopt;
}

} // namespace zv
