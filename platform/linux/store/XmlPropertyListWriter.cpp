#include "platform/linux/store/XmlPropertyListWriter.h"

#include "base/Base64.h"
#include "base/XmlText.h"
#include "platform/linux/store/PropertyListLimits.h"
#include "platform/linux/store/PropertyListScalars.h"
#include "platform/text/PropertyListFormat.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace zv {

namespace {

constexpr std::string_view head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                  "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                  "<plist version=\"1.0\">\n";
constexpr std::string_view foot = "</plist>\n";
constexpr std::size_t base64Line = 68;

bool isMarkup(char c) { return c == '<' || c == '>' || c == '&'; }

/// True for nearly every text; the loop has no early exit, so that the compiler can vectorise it.
bool isPlain(std::string_view text)
{
    bool isOther = false;
    for (unsigned char const byte : text)
        isOther |= byte < 0x20 || byte >= 0x7f || byte == '<' || byte == '>' || byte == '&';
    return !isOther;
}

/// After a failure the rest is skipped.
class Writer {
public:
    void write(PropertyList const& value)
    {
        if (m_text.size() > maximumPropertyListSize)
            fail(largerThanAllowed);
        else if (failure.empty())
            std::visit(*this, value.value());
    }

    void operator()(std::string const& value) { addText("string", value); }
    void operator()(std::int64_t value) { addElement("integer", std::to_string(value)); }
    void operator()(std::uint64_t value) { addElement("integer", std::to_string(value)); }
    void operator()(double value);
    void operator()(bool value) { addLine(value ? "<true/>" : "<false/>"); }
    void operator()(PropertyListDate date);
    void operator()(PropertyListData const& value);
    void operator()(PropertyListArray const& value);
    void operator()(PropertyListDictionary const& value);

    [[nodiscard]] std::vector<std::byte> document() const;
    [[nodiscard]] std::size_t size() const { return head.size() + m_text.size() + foot.size(); }

    std::string failure;

private:
    void fail(std::string_view reason)
    {
        if (failure.empty())
            failure = reason;
    }
    void indent() { m_text.append(static_cast<std::size_t>(m_depth), '\t'); }
    void addLine(std::string_view line)
    {
        indent();
        m_text.append(line).append(1, '\n');
    }
    void addElement(std::string_view tag, std::string_view content);
    void addText(std::string_view tag, std::string const& text);
    void addEscaped(std::string_view text);
    void check(std::string const& text);
    template <class Content> void addContainer(std::string_view tag, bool isEmpty, Content const& content);

    std::string m_text;
    int m_depth = 0;
};

void Writer::addElement(std::string_view tag, std::string_view content)
{
    indent();
    m_text.append("<").append(tag).append(">").append(content).append("</").append(tag).append(">\n");
}

void Writer::addText(std::string_view tag, std::string const& text)
{
    if (isPlain(text))
        return addElement(tag, text);
    check(text);
    indent();
    m_text.append("<").append(tag).append(">");
    addEscaped(text);
    m_text.append("</").append(tag).append(">\n");
}

void Writer::addEscaped(std::string_view text)
{
    auto rest = text.begin();
    for (auto at = rest; at != text.end(); ++at) {
        if (!isMarkup(*at))
            continue;
        m_text.append(rest, at).append(*at == '<' ? "&lt;" : *at == '>' ? "&gt;" : "&amp;");
        rest = at + 1;
    }
    m_text.append(rest, text.end());
}

void Writer::check(std::string const& text)
{
    if (!isValidUtf8(text))
        fail(stringNotUtf8);
    if (text.find('\0') != std::string::npos)
        fail(stringHoldsNull);
    if (!isXmlText(text))
        fail("a string in it holds a character that XML has not");
}

/// The shortest text that is read as the same number, whatever the locale.
void Writer::operator()(double value)
{
    std::array<char, 32> text {};
    auto const [end, error] = std::to_chars(text.data(), text.data() + text.size(), value);
    addElement("real", { text.data(), static_cast<std::size_t>(end - text.data()) });
}

void Writer::operator()(PropertyListDate date)
{
    using namespace std::chrono;
    if (!isDateInRange(date.secondsSinceReference))
        return fail(dateOutOfRange);
    auto const moment = sys_days(year(2001) / January / 1) + seconds(static_cast<std::int64_t>(std::floor(date.secondsSinceReference)));
    auto const days = floor<std::chrono::days>(moment);
    year_month_day const day(days);
    hh_mm_ss const time(moment - days);
    std::array<char, 64> text {};
    auto const length = std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(day.year()),
        static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()), static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
        static_cast<int>(time.seconds().count()));
    addElement("date", { text.data(), static_cast<std::size_t>(length) });
}

void Writer::operator()(PropertyListData const& value)
{
    auto const digits = toBase64(value);
    addLine("<data>");
    for (std::string_view rest = digits; !rest.empty(); rest.remove_prefix(std::min(base64Line, rest.size())))
        addLine(rest.substr(0, base64Line));
    addLine("</data>");
}

template <class Content> void Writer::addContainer(std::string_view tag, bool isEmpty, Content const& content)
{
    auto const name = std::string(tag);
    if (m_depth >= maximumPropertyListDepth)
        return fail(tooDeepMessage());
    if (isEmpty)
        return addLine("<" + name + "/>");
    addLine("<" + name + ">");
    ++m_depth;
    content();
    --m_depth;
    addLine("</" + name + ">");
}

void Writer::operator()(PropertyListArray const& value)
{
    addContainer("array", value.empty(), [&] { std::for_each(value.begin(), value.end(), [this](auto const& element) { write(element); }); });
}

void Writer::operator()(PropertyListDictionary const& value)
{
    addContainer("dict", value.empty(), [&] {
        for (auto entry = value.begin(); entry != value.end() && failure.empty(); ++entry) {
            addText("key", entry->first);
            write(entry->second);
        }
    });
}

std::vector<std::byte> Writer::document() const
{
    std::vector<std::byte> bytes;
    bytes.reserve(size());
    for (std::string_view const part : { head, std::string_view(m_text), foot }) {
        auto const* begin = reinterpret_cast<std::byte const*>(part.data());
        bytes.insert(bytes.end(), begin, begin + part.size());
    }
    return bytes;
}

} // namespace

Result<std::vector<std::byte>> writeXmlPropertyList(PropertyList const& value)
{
    Writer writer;
    writer.write(value);
    if (writer.failure.empty() && writer.size() > maximumPropertyListSize)
        return Failure { std::string(largerThanAllowed) };
    if (!writer.failure.empty())
        return Failure { std::move(writer.failure) };
    return writer.document();
}

} // namespace zv
