#include "platform/linux/apps/MetadataPredicate.h"

#include <algorithm>
#include <charconv>

namespace zv {

namespace {

constexpr std::string_view conjunction = " && ";
constexpr std::string_view lastUsed = "kMDItemLastUsedDate >= $time.now(-";
constexpr std::string_view typeIs = "kMDItemContentType == '";
constexpr std::string_view typeIsNot = "kMDItemContentType != '";

/// What stands between the prefix and the closing characters.
std::optional<std::string_view> between(std::string_view text, std::string_view prefix, std::string_view suffix)
{
    if (text.size() < prefix.size() + suffix.size() || !text.starts_with(prefix) || !text.ends_with(suffix))
        return std::nullopt;
    return text.substr(prefix.size(), text.size() - prefix.size() - suffix.size());
}

UsedItemType typeNamed(std::string_view contentType)
{
    if (contentType == "com.apple.application-bundle")
        return UsedItemType::application;
    return contentType == "public.folder" ? UsedItemType::folder : UsedItemType::document;
}

bool addCondition(MetadataPredicate& predicate, std::string_view condition)
{
    if (auto const seconds = between(condition, lastUsed, ")")) {
        auto const [end, error] = std::from_chars(seconds->data(), seconds->data() + seconds->size(), predicate.usedWithinSeconds);
        return error == std::errc {} && end == seconds->data() + seconds->size();
    }
    if (auto const type = between(condition, typeIs, "'")) {
        predicate.types.push_back({ typeNamed(*type), false });
        return true;
    }
    if (auto const type = between(condition, typeIsNot, "'")) {
        predicate.types.push_back({ typeNamed(*type), true });
        return true;
    }
    return false;
}

} // namespace

std::optional<MetadataPredicate> MetadataPredicate::parse(std::string_view queryString)
{
    MetadataPredicate predicate;
    while (true) {
        auto const end = queryString.find(conjunction);
        if (!addCondition(predicate, queryString.substr(0, end)))
            return std::nullopt;
        if (end == std::string_view::npos)
            return predicate;
        queryString.remove_prefix(end + conjunction.size());
    }
}

bool MetadataPredicate::admits(UsedItemType type) const
{
    return std::all_of(types.begin(), types.end(), [type](auto const& condition) { return (condition.type == type) != condition.isExcluded; });
}

} // namespace zv
