#include "cli/FileArgument.h"

#include <istream>
#include <iterator>
#include <ostream>

namespace zv {

namespace {

constexpr std::string_view standardStream = "-";

std::vector<std::byte> readAll(std::istream& in)
{
    std::string const text { std::istreambuf_iterator<char>(in), {} };
    auto const* bytes = reinterpret_cast<std::byte const*>(text.data());
    return { bytes, bytes + text.size() };
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
    return context.files().read(fileArgument(context, argument));
}

MaybeFailure<> writeFileArgument(CommandContext& context, std::string const& argument, std::vector<std::byte> const& bytes)
{
    if (argument != standardStream)
        return context.files().write(fileArgument(context, argument), bytes);
    context.out().write(reinterpret_cast<char const*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return std::nullopt; // what went wrong with standard output is said once, at the end
}

} // namespace zv
