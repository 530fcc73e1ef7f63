#include "cli/FileArgument.h"

#include "platform/text/PropertyListFormat.h"

#include <istream>
#include <ostream>

namespace zv {

namespace {

constexpr std::string_view standardStream = "-";

constexpr std::size_t pieceSize = std::size_t { 64 } << 10;

/// Reads to the end, or until the size exceeds any document's.
std::vector<std::byte> readAll(std::istream& in)
{
    std::vector<std::byte> bytes;
    while (in && bytes.size() <= maximumPropertyListSize) {
        auto const size = bytes.size();
        bytes.resize(size + pieceSize);
        in.read(reinterpret_cast<char*>(bytes.data() + size), pieceSize);
        bytes.resize(size + static_cast<std::size_t>(in.gcount()));
    }
    return bytes;
}

} // namespace

Url fileArgument(CommandContext& context, std::string const& argument)
{
    return argument.starts_with('/') ? Url::fromPath(argument) : context.currentFolder().appending(argument);
}

Result<std::vector<std::byte>> readFileArgument(CommandContext& context, std::string const& argument)
{
    if (argument == standardStream)
        return readAll(context.in());
    return context.files().disk->read(fileArgument(context, argument));
}

Result<void> writeFileArgument(CommandContext& context, std::string const& argument, std::vector<std::byte> const& bytes)
{
    if (argument != standardStream)
        return context.files().disk->write(fileArgument(context, argument), bytes);
    context.out().write(reinterpret_cast<char const*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return {}; // errors of standard output are reported once, at the end
}

} // namespace zv
