#include "app/model/PlainText.h"

#include "base/XmlText.h"
#include "platform/text/Text.h"

#include <algorithm>

namespace zv {

namespace {

bool isContinuationOfC1(unsigned char byte) { return byte >= 0x80 && byte < 0xA0; }

/// The length of the control character or noncharacter that the text begins with, else 0. A null
/// character stays, and is refused: it comes from damage, not from a paste.
std::size_t leadingControl(std::string_view text)
{
    auto const first = static_cast<unsigned char>(text[0]);
    if ((first < 0x20 && first != 0) || first == 0x7F)
        return 1;
    if (first == 0xC2 && text.size() > 1 && isContinuationOfC1(static_cast<unsigned char>(text[1])))
        return 2;
    return text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF") ? 3 : 0;
}

} // namespace

bool isPlainText(std::string_view text) { return isXmlText(text) && isValidUtf8(text); }

bool isStorableText(std::string_view text) { return isValidUtf8(text) && text.find('\0') == std::string_view::npos; }

std::string withoutControls(std::string_view text)
{
    std::string cleaned;
    cleaned.reserve(text.size());
    while (!text.empty()) {
        auto const control = leadingControl(text);
        cleaned += control ? ' ' : text[0];
        text.remove_prefix(std::max<std::size_t>(control, 1));
    }
    return cleaned;
}

PropertyList textOrData(std::string_view text)
{
    if (isPlainText(text))
        return text;
    auto const* bytes = reinterpret_cast<std::byte const*>(text.data());
    return PropertyListData(bytes, bytes + text.size());
}

} // namespace zv
