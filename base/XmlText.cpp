#include "base/XmlText.h"

#include <algorithm>
#include <cmath>

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

bool isXmlText(std::string_view text) { return isPrintableAscii(text) || (std::none_of(text.begin(), text.end(), isForbidden) && !hasNoncharacter(text)); }

bool isXmlValue(PropertyList const& value)
{
    if (auto const* text = value.string())
        return isXmlText(*text);
    if (auto const* array = value.array())
        return std::all_of(array->begin(), array->end(), isXmlValue);
    if (auto const* dictionary = value.dictionary())
        return std::all_of(dictionary->begin(), dictionary->end(), [](auto const& entry) { return isXmlText(entry.first) && isXmlValue(entry.second); });
    auto const date = value.date();
    return !date || std::floor(date->secondsSinceReference) == date->secondsSinceReference;
}

} // namespace zv
