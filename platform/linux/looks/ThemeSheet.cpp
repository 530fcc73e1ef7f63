#include "platform/linux/looks/ThemeSheet.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace zv {

namespace {

constexpr int deepest = 12; // of imports, and of colours made of others
constexpr int mostImports = 64;
constexpr std::size_t mostText = std::size_t { 4 } << 20;
constexpr std::size_t longestSelector = 60;

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f'; }

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string withoutComments(std::string_view text)
{
    std::string plain;
    for (text = text.substr(0, mostText); !text.empty();) {
        auto const start = std::min(text.find("/*"), text.size());
        plain += text.substr(0, start);
        auto const end = text.find("*/", start + 2);
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 2);
    }
    return plain;
}

/// The parts between separators that stand in no brackets.
std::vector<std::string_view> parts(std::string_view text, char separator)
{
    std::vector<std::string_view> found;
    int depth = 0;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        bool const isEnd = i == text.size() || (depth == 0 && text[i] == separator);
        if (isEnd) {
            if (auto const part = trimmed(text.substr(start, i - start)); !part.empty())
                found.push_back(part);
            start = i + 1;
        } else if (text[i] == '(' || text[i] == ')') {
            depth += text[i] == '(' ? 1 : -1;
        }
    }
    return found;
}

/// The selector with single blanks, and without the signs of children: "menu > menuitem" is "menu menuitem".
std::string plainSelector(std::string_view selector)
{
    std::string plain;
    for (char const c : selector) {
        bool const parts = isBlank(c) || c == '>';
        if (!parts)
            plain += c;
        else if (!plain.empty() && plain.back() != ' ')
            plain += ' ';
    }
    return plain;
}

/// The end of the block whose brace has just been opened.
std::size_t endOfBlock(std::string_view text, std::size_t from)
{
    int depth = 1;
    for (auto i = from; i < text.size(); ++i) {
        depth += text[i] == '{' ? 1 : text[i] == '}' ? -1 : 0;
        if (depth == 0)
            return i;
    }
    return text.size();
}

/// The text between the first pair of quotes, or of brackets.
std::string addressIn(std::string_view statement)
{
    auto const start = statement.find_first_of("\"'");
    if (start != std::string_view::npos)
        return std::string(statement.substr(start + 1, statement.find(statement[start], start + 1) - start - 1));
    auto const bracket = statement.find('(');
    return bracket == std::string_view::npos ? "" : std::string(trimmed(statement.substr(bracket + 1, statement.find(')') - bracket - 1)));
}

std::optional<double> numberAt(std::string_view text)
{
    double number = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc {} || !std::isfinite(number))
        return std::nullopt;
    return end != text.data() + text.size() && *end == '%' ? number / 100 : number;
}

/// As the toolkit's shade(): lightness and saturation both are multiplied.
QColor shaded(QColor const& color, double factor)
{
    auto const scaled = [&](float value) { return std::clamp(static_cast<float>(value * factor), 0.F, 1.F); };
    return QColor::fromHslF(std::max(0.F, color.hslHueF()), scaled(color.hslSaturationF()), scaled(color.lightnessF()), color.alphaF());
}

QColor mixed(QColor const& one, QColor const& other, double share)
{
    auto const between = [&](float a, float b) { return static_cast<float>(a + (b - a) * share); };
    return QColor::fromRgbF(
        between(one.redF(), other.redF()), between(one.greenF(), other.greenF()), between(one.blueF(), other.blueF()), between(one.alphaF(), other.alphaF()));
}

} // namespace

ThemeSheet::ThemeSheet(std::string_view text, Import const& import) { read(text, import, 0); }

void ThemeSheet::read(std::string_view given, Import const& import, int depth)
{
    auto const whole = withoutComments(given);
    for (std::string_view text = whole; !(text = trimmed(text)).empty();) {
        auto const end = std::min(text.find_first_of("{;"), text.size());
        auto const head = trimmed(text.substr(0, end));
        bool const isBlock = end < text.size() && text[end] == '{';
        auto const close = isBlock ? endOfBlock(text, end + 1) : end;
        if (head.starts_with("@import") && depth < deepest && m_importCount++ < mostImports)
            read(import(addressIn(head)), import, depth + 1);
        else if (auto const words = parts(head, ' '); head.starts_with("@define-color") && words.size() >= 3)
            m_colors[std::string(words[1])] = trimmed(head.substr(static_cast<std::size_t>(words[2].data() - head.data())));
        else if (isBlock && !head.starts_with('@'))
            addRule(head, text.substr(end + 1, close - end - 1));
        text.remove_prefix(std::min(close + 1, text.size()));
    }
}

void ThemeSheet::addRule(std::string_view selectors, std::string_view body)
{
    if (selectors.find("menu") == std::string_view::npos)
        return;
    ++m_ruleCount;
    for (auto const& selector : parts(selectors, ',')) {
        if (selector.find("menu") == std::string_view::npos || selector.size() > longestSelector)
            continue;
        for (auto const& declaration : parts(body, ';')) {
            auto const colon = std::min(declaration.find(':'), declaration.size() - 1);
            m_values[{ plainSelector(selector), std::string(trimmed(declaration.substr(0, colon))) }]
                = { std::string(trimmed(declaration.substr(colon + 1))), m_ruleCount };
        }
    }
}

std::string const* ThemeSheet::value(std::vector<std::string> const& selectors, std::string const& property) const
{
    Value const* last = nullptr;
    for (auto const& selector : selectors) {
        auto const found = m_values.find({ selector, property });
        if (found != m_values.end() && (!last || found->second.order > last->order))
            last = &found->second;
    }
    return last ? &last->text : nullptr;
}

std::optional<QColor> ThemeSheet::color(std::string const& name) const
{
    auto const found = m_colors.find(name);
    return found == m_colors.end() ? std::nullopt : evaluated(found->second);
}

std::optional<QColor> ThemeSheet::color(std::vector<std::string> const& selectors, std::string const& property) const
{
    auto const* text = value(selectors, property);
    return text ? evaluated(*text) : std::nullopt;
}

std::vector<int> ThemeSheet::lengths(std::vector<std::string> const& selectors, std::string const& property) const
{
    std::vector<int> lengths;
    auto const* text = value(selectors, property);
    for (auto const& word : parts(text ? *text : std::string_view(), ' ')) {
        if (auto const length = numberAt(word); length && lengths.size() < 2 && std::abs(*length) < 100)
            lengths.push_back(static_cast<int>(*length));
    }
    return lengths;
}

std::optional<QColor> ThemeSheet::evaluated(std::string_view expression, int depth) const
{
    expression = trimmed(expression);
    if (expression.empty() || depth > deepest)
        return std::nullopt;
    if (expression.front() == '@') {
        auto const found = m_colors.find(std::string(expression.substr(1)));
        return found == m_colors.end() ? std::nullopt : evaluated(found->second, depth + 1);
    }
    auto const bracket = expression.find('(');
    if (bracket != std::string_view::npos && expression.back() == ')')
        return called(trimmed(expression.substr(0, bracket)), parts(expression.substr(bracket + 1, expression.size() - bracket - 2), ','), depth);
    auto const name = QString::fromUtf8(expression.data(), static_cast<qsizetype>(expression.size()));
    bool const isColor = QColor::isValidColorName(name) && name != QLatin1String("transparent");
    return isColor ? std::optional(QColor(name)) : std::nullopt;
}

/// The mean of a gradient's colours, of which each may say where it stands: "shade(@a, 1.2) 33%".
std::optional<QColor> ThemeSheet::meanOf(std::vector<std::string_view> const& stops, int depth) const
{
    std::optional<QColor> mean;
    double count = 1;
    for (auto const& stop : stops) {
        auto const place = parts(stop, ' ').back();
        bool const isPlaced = place.size() < stop.size() && numberAt(place);
        auto const color = evaluated(isPlaced ? stop.substr(0, stop.size() - place.size()) : stop, depth + 1);
        if (color && mean)
            mean = mixed(*mean, *color, 1 / ++count);
        else if (color)
            mean = color;
    }
    return mean;
}

std::optional<QColor> ThemeSheet::called(std::string_view function, std::vector<std::string_view> const& arguments, int depth) const
{
    auto const number = [&](std::size_t place) { return place < arguments.size() ? numberAt(arguments[place]) : std::nullopt; };
    if (function.ends_with("gradient"))
        return meanOf(arguments, depth);
    if (function == "from" || function == "to" || function == "color-stop")
        return arguments.empty() ? std::nullopt : evaluated(arguments.back(), depth + 1);
    if (function == "rgb" || function == "rgba") {
        auto const red = number(0), green = number(1), blue = number(2);
        if (!red || !green || !blue)
            return std::nullopt;
        auto const byte = [](double value) { return static_cast<int>(std::clamp(value, 0.0, 255.0)); };
        return QColor(byte(*red), byte(*green), byte(*blue), byte(number(3).value_or(1) * 255));
    }
    auto const first = arguments.empty() ? std::nullopt : evaluated(arguments[0], depth + 1);
    if (function == "shade" && first && number(1))
        return shaded(*first, *number(1));
    if (function == "lighter" || function == "darker")
        return first ? std::optional(shaded(*first, function == "lighter" ? 1.3 : 0.7)) : std::nullopt;
    if (function == "mix" && arguments.size() == 3 && first) {
        auto const second = evaluated(arguments[1], depth + 1);
        return second && number(2) ? std::optional(mixed(*first, *second, *number(2))) : std::nullopt;
    }
    if (function == "alpha" && first && number(1)) {
        auto faint = *first;
        faint.setAlphaF(static_cast<float>(std::clamp(first->alphaF() * *number(1), 0.0, 1.0)));
        return faint;
    }
    return std::nullopt;
}

} // namespace zv
