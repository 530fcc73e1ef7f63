#include "platform/macos/lists/MetadataQuery.h"

#include <algorithm>
#include <string_view>

namespace zv {

namespace {

std::string_view contentTypeCondition(RecentItemsScope scope)
{
    switch (scope) {
    case RecentItemsScope::all:
        return "";
    case RecentItemsScope::applications:
        return " && kMDItemContentType == 'com.apple.application-bundle'";
    case RecentItemsScope::folders:
        return " && kMDItemContentType == 'public.folder'";
    case RecentItemsScope::documents:
        return " && kMDItemContentType != 'public.folder' && kMDItemContentType != 'com.apple.application-bundle'";
    }
    return "";
}

} // namespace

/// File Metadata Query Expression Syntax:
/// https://developer.apple.com/library/archive/documentation/Carbon/Conceptual/SpotlightQuery/Concepts/QueryFormat.html
std::string metadataQueryString(RecentFilesQuestion const& question)
{
    return "kMDItemLastUsedDate >= $time.now(-" + std::to_string(question.usedWithin.count()) + ")" + std::string(contentTypeCondition(question.scope));
}

std::vector<RecentFile> firstFiles(std::size_t resultCount, std::size_t limit, std::function<std::optional<std::string>(std::size_t index)> const& pathOfResult)
{
    std::vector<RecentFile> files;
    for (std::size_t i = 0; i < std::min(resultCount, limit); ++i) {
        if (auto path = pathOfResult(i))
            files.push_back({ *path, path->ends_with('/'), false });
    }
    return files;
}

} // namespace zv
