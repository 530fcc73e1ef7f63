#include "platform/linux/store/PropertyListScalars.h"

#include "base/Base64.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace zv {

namespace {

constexpr std::string_view blanks = " \t\r\n";

std::string_view withoutBlanks(std::string_view text)
{
    auto const start = text.find_first_not_of(blanks);
    if (start == std::string_view::npos)
        return {};
    return text.substr(start, text.find_last_not_of(blanks) - start + 1);
}

std::optional<std::uint64_t> magnitudeFromText(std::string_view text)
{
    int const base = text.starts_with("0x") || text.starts_with("0X") ? 16 : 10;
    text.remove_prefix(base == 16 ? 2 : 0);
    std::uint64_t magnitude = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), magnitude, base);
    bool const isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole ? std::optional(magnitude) : std::nullopt;
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool hasDateShape(std::string_view text)
{
    static constexpr std::string_view shape = "0000-00-00T00:00:00";
    if (text.size() <= shape.size() || !text.ends_with('Z'))
        return false;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        if (shape[i] == '0' ? !isDigit(text[i]) : text[i] != shape[i])
            return false;
    }
    auto const fraction = text.substr(shape.size(), text.size() - shape.size() - 1);
    return fraction.empty() || (fraction[0] == '.' && std::all_of(fraction.begin() + 1, fraction.end(), isDigit));
}

int digits(std::string_view text, std::size_t offset, std::size_t count)
{
    int value = 0;
    for (char const c : text.substr(offset, count))
        value = value * 10 + (c - '0');
    return value;
}

bool isTimeOfDay(std::string_view date) { return digits(date, 11, 2) < 24 && digits(date, 14, 2) < 60 && digits(date, 17, 2) < 60; }

} // namespace

std::optional<PropertyList> integerFromText(std::string const& text)
{
    auto digits = withoutBlanks(text);
    bool const isNegative = digits.starts_with('-');
    if (isNegative || digits.starts_with('+'))
        digits.remove_prefix(1);
    auto const magnitude = magnitudeFromText(digits);
    if (!magnitude || (isNegative && *magnitude > std::uint64_t { 1 } << 63))
        return std::nullopt;
    if (!isNegative && *magnitude > static_cast<std::uint64_t>(INT64_MAX))
        return PropertyList(*magnitude);
    return PropertyList(static_cast<std::int64_t>(isNegative ? 0 - *magnitude : *magnitude));
}

std::optional<PropertyList> realFromText(std::string const& text)
{
    std::string const number(withoutBlanks(text));
    char* end = nullptr;
    double const value = std::strtod(number.c_str(), &end);
    bool const isWhole = !number.empty() && end == number.c_str() + number.size();
    return isWhole ? std::optional(PropertyList(value)) : std::nullopt;
}

std::optional<PropertyList> dateFromText(std::string const& text)
{
    using namespace std::chrono;
    auto const date = withoutBlanks(text);
    if (!hasDateShape(date))
        return std::nullopt;
    auto const day = year(digits(date, 0, 4)) / digits(date, 5, 2) / digits(date, 8, 2);
    auto const time = hours(digits(date, 11, 2)) + minutes(digits(date, 14, 2)) + seconds(digits(date, 17, 2));
    if (!day.ok() || !isTimeOfDay(date))
        return std::nullopt;
    auto const sinceReference = sys_days(day) + time - sys_days(year(2001) / January / 1);
    auto const exact = static_cast<double>(sinceReference.count());
    return isDateInRange(exact) ? std::optional(PropertyList(PropertyListDate { exact })) : std::nullopt;
}

std::optional<PropertyList> dataFromText(std::string text)
{
    std::erase_if(text, [](char c) { return blanks.find(c) != std::string_view::npos; });
    auto bytes = fromBase64(text);
    return bytes ? std::optional(PropertyList(std::move(*bytes))) : std::nullopt;
}

bool isDateInRange(double secondsSinceReference) { return secondsSinceReference >= -63'114'076'800.0 && secondsSinceReference < 252'423'993'600.0; }

bool isBlank(std::string_view text) { return text.find_first_not_of(blanks) == std::string_view::npos; }

} // namespace zv
