#include "app/model/PlainText.h"

#include "platform/text/Text.h"

#include <algorithm>

namespace zv {

namespace {

bool isForbidden(unsigned char byte) { return byte < 0x20 && byte != '\t' && byte != '\n'; }

/// True for nearly every text; the loop has no early exit, so that the compiler can vectorise it.
bool isPrintableAscii(std::string_view text)
{
    bool isOther = false;
    for (unsigned char const byte : text)
        isOther |= byte < 0x20 || byte >= 0x80;
    return !isOther;
}

bool hasNoncharacter(std::string_view text)
{
    return text.find("\xEF\xBF\xBE") != std::string_view::npos || text.find("\xEF\xBF\xBF") != std::string_view::npos;
}

} // namespace

bool isPlainText(std::string_view text)
{
    if (isPrintableAscii(text))
        return true;
    if (std::any_of(text.begin(), text.end(), isForbidden))
        return false;
    return isValidUtf8(text) && !hasNoncharacter(text);
}

PropertyList textOrData(std::string_view text)
{
    if (isPlainText(text))
        return text;
    auto const* bytes = reinterpret_cast<std::byte const*>(text.data());
    return PropertyListData(bytes, bytes + text.size());
}

} // namespace zv
