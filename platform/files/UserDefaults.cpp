#include "platform/files/UserDefaults.h"

#include "base/Log.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <utility>

namespace zv {

namespace {

using Limits = std::numeric_limits<std::int64_t>;

std::string_view withoutPrefix(std::string_view text, std::string_view characters)
{
    return text.substr(std::min(text.find_first_not_of(characters), text.size()));
}

/// The number at the front of the text; one out of range becomes the nearest in range.
std::int64_t leadingInteger(std::string_view text)
{
    text = withoutPrefix(text, " \t\n\r");
    if (text.starts_with('+'))
        text.remove_prefix(1);
    std::int64_t number = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc::result_out_of_range)
        return text.starts_with('-') ? Limits::min() : Limits::max();
    return number;
}

std::int64_t truncated(double real)
{
    if (std::isnan(real))
        return 0;
    if (real >= 0x1p63)
        return Limits::max();
    return real < -0x1p63 ? Limits::min() : static_cast<std::int64_t>(real);
}

/// As https://developer.apple.com/documentation/foundation/nsstring/1409420-boolvalue reads it.
bool isTrueText(std::string_view text)
{
    text = withoutPrefix(text, " \t\n\r");
    if (text.starts_with('+') || text.starts_with('-'))
        text.remove_prefix(1);
    text = withoutPrefix(text, "0");
    return !text.empty() && std::string_view("YyTt123456789").find(text.front()) != std::string_view::npos;
}

struct BoolReader {
    bool operator()(bool value) const { return value; }
    bool operator()(std::int64_t value) const { return value != 0; }
    bool operator()(std::uint64_t value) const { return value != 0; }
    bool operator()(double value) const { return value != 0; }
    bool operator()(std::string const& value) const { return isTrueText(value); }
    template <class Other> bool operator()(Other const&) const { return false; }
};

struct IntegerReader {
    std::int64_t operator()(bool value) const { return value ? 1 : 0; }
    std::int64_t operator()(std::int64_t value) const { return value; }
    std::int64_t operator()(std::uint64_t) const { return Limits::max(); }
    std::int64_t operator()(double value) const { return truncated(value); }
    std::int64_t operator()(std::string const& value) const { return leadingInteger(value); }
    template <class Other> std::int64_t operator()(Other const&) const { return 0; }
};

} // namespace

void UserDefaults::keep(std::string_view key, PropertyList value)
{
    if (auto const saved = setObject(key, std::move(value)); !saved)
        logLine("could not save " + std::string(key) + ": " + saved.error());
}

bool UserDefaults::boolForKey(std::string_view key) const
{
    auto const value = object(key);
    return value && std::visit(BoolReader(), value->value());
}

std::int64_t UserDefaults::integerForKey(std::string_view key) const
{
    auto const value = object(key);
    return value ? std::visit(IntegerReader(), value->value()) : 0;
}

} // namespace zv
