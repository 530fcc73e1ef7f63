#include "app/updates/SignedFeed.h"

#include "base/Base64.h"

#include <string_view>

namespace zv {

namespace {

constexpr std::string_view begin = "<!-- edSignature: ";
constexpr std::string_view end = " -->";

} // namespace

std::optional<SignedFeed> SignedFeed::read(std::span<std::byte const> bytes)
{
    std::string_view text(reinterpret_cast<char const*>(bytes.data()), bytes.size());
    auto const start = text.rfind(begin);
    if (start == std::string_view::npos)
        return std::nullopt;
    auto line = text.substr(start + begin.size());
    line = line.substr(0, line.find_last_not_of(" \r\n") + 1);
    if (!line.ends_with(end))
        return std::nullopt;
    line.remove_suffix(end.size());
    auto signature = fromBase64(line);
    return signature ? std::optional(SignedFeed { bytes.first(start), std::move(*signature) }) : std::nullopt;
}

} // namespace zv
