#include "app/model/ReadFailure.h"

namespace zv {

namespace {

std::string placeOf(std::vector<std::size_t> const& indexPath)
{
    if (indexPath.empty())
        return "the document";
    std::string place = "item ";
    for (std::size_t i = 0; i < indexPath.size(); ++i)
        place += (i == 0 ? "" : " › ") + std::to_string(indexPath[i] + 1);
    return place;
}

} // namespace

std::string ReadFailure::description() const
{
    auto const place = placeOf(indexPath);
    return key.empty() ? place + " " + reason : place + ": \"" + key + "\" " + reason;
}

} // namespace zv
