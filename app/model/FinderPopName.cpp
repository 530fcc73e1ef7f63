#include "app/model/FinderPopName.h"

#include "app/model/HashCombiner.h"
#include "base/Url.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <array>

namespace zv {

namespace {

constexpr std::string_view annotationStart = "-*[";
constexpr std::string_view annotationEnd = "]*";
constexpr std::string_view separatorMark = "-***";
/// Part of every mark; one search for it rules out most names.
constexpr char commonMark = '*';

bool isPrintableAscii(char c) { return c >= ' ' && c < 0x7F; }

/// Bytes of the ordering prefix, 0 when there is none. Four printable ASCII characters are four
/// graphemes; other names need a closer look.
std::size_t orderingPrefixLength(std::string_view name)
{
    if (name.size() < 4)
        return 0;
    auto const head = name.substr(0, 4);
    if (std::all_of(head.begin(), head.end(), isPrintableAscii))
        return head[2] == ')' && head[0] != '(' && head[1] != '(' ? 3 : 0;
    if (name.find(')') == std::string_view::npos)
        return 0;
    auto const first = firstGraphemes(name, 4);
    if (first.size() < 4 || first[2] != ")" || first[0] == "(" || first[1] == "(")
        return 0;
    return first[0].size() + first[1].size() + first[2].size();
}

bool isSeparatorName(std::string_view name) { return name.ends_with(separatorMark) || deletingPathExtension(name).ends_with(separatorMark); }

struct Annotation {
    std::size_t start; ///< of "-*["
    std::size_t end; ///< after "]*"
    KeyEquivalentSpec hotkey;
};

std::optional<Annotation> findAnnotation(std::string_view name)
{
    auto const start = name.rfind(annotationStart);
    if (start == std::string_view::npos)
        return std::nullopt;
    auto const textStart = start + annotationStart.size();
    auto const textEnd = name.find(annotationEnd, textStart);
    if (textEnd == std::string_view::npos)
        return std::nullopt;
    auto const end = textEnd + annotationEnd.size();
    if (end < name.size() && name[end] != '.')
        return std::nullopt;
    auto hotkey = parseShortcutText(name.substr(textStart, textEnd - textStart));
    return hotkey ? std::optional(Annotation { start, end, std::move(*hotkey) }) : std::nullopt;
}

enum class Modifier : std::uint8_t { command, option, control, shift };

std::optional<Modifier> modifierNamed(std::string_view word)
{
    struct Word {
        std::string_view text;
        Modifier modifier;
    };
    static constexpr std::array<Word, 10> words { { { "cmd", Modifier::command }, { "command", Modifier::command }, { "opt", Modifier::option },
        { "alt", Modifier::option }, { "option", Modifier::option }, { "control", Modifier::control }, { "ctrl", Modifier::control },
        { "cntl", Modifier::control }, { "shift", Modifier::shift }, { "sh", Modifier::shift } } };
    auto const found = std::find_if(words.begin(), words.end(), [&](Word const& candidate) { return candidate.text == word; });
    return found == words.end() ? std::nullopt : std::optional(found->modifier);
}

/// Collects the pieces of a shortcut text.
class ShortcutParser {
public:
    /// False when the piece invalidates the shortcut.
    bool add(std::string_view piece)
    {
        piece = trimmed(piece);
        if (piece.empty())
            return false;
        if (auto const modifier = modifierNamed(lowerCased(piece))) {
            m_modifiers.at(static_cast<std::size_t>(*modifier)) = true;
            return true;
        }
        bool const isFirst = m_key.empty();
        m_key = piece;
        return isFirst;
    }

    [[nodiscard]] std::optional<KeyEquivalentSpec> shortcut() const
    {
        auto trigger = triggerOfKey();
        if (!trigger || (needsModifier(*trigger) && !hasModifier()))
            return std::nullopt;
        return KeyEquivalentSpec { std::move(*trigger), has(Modifier::shift), has(Modifier::option), has(Modifier::control), !has(Modifier::command) };
    }

private:
    using Trigger = KeyEquivalentSpec::Trigger;

    [[nodiscard]] std::optional<Trigger> triggerOfKey() const
    {
        if (m_key.empty())
            return std::nullopt;
        if (singleGrapheme(m_key))
            return Trigger::upperCasedCharacter(m_key);
        auto const name = lowerCased(m_key);
        return keyCodeOfNamedKey(name) ? std::optional(Trigger::named(name)) : std::nullopt;
    }

    /// A bare character would swallow typing, a bare Escape its usual uses.
    static bool needsModifier(Trigger const& trigger) { return trigger.kind == Trigger::Kind::character || trigger.text == "esc"; }
    [[nodiscard]] bool has(Modifier modifier) const { return m_modifiers.at(static_cast<std::size_t>(modifier)); }
    [[nodiscard]] bool hasModifier() const { return std::find(m_modifiers.begin(), m_modifiers.end(), true) != m_modifiers.end(); }

    std::array<bool, 4> m_modifiers {};
    std::string_view m_key;
};

} // namespace

std::optional<KeyEquivalentSpec> parseShortcutText(std::string_view text)
{
    ShortcutParser parser;
    while (!text.empty()) {
        auto const plus = std::min(text.find('+'), text.size());
        if (plus > 0 && !parser.add(text.substr(0, plus)))
            return std::nullopt;
        text.remove_prefix(std::min(plus + 1, text.size()));
    }
    return parser.shortcut();
}

FinderPopName::FinderPopName(std::string_view name)
    : sortName(name)
{
    auto const prefixLength = orderingPrefixLength(name);
    if (prefixLength > 0)
        orderingPrefix = name.substr(0, prefixLength);
    name.remove_prefix(prefixLength);
    if (name.find(commonMark) == std::string_view::npos)
        title = name;
    else
        readMarks(name);
}

void FinderPopName::readMarks(std::string_view name)
{
    isSeparator = isSeparatorName(name);
    if (isSeparator)
        return;
    auto annotation = findAnnotation(name);
    if (!annotation) {
        title = name;
        return;
    }
    hotkey = std::move(annotation->hotkey);
    title.reserve(name.size());
    title.append(name.substr(0, annotation->start)).append(name.substr(annotation->end));
}

std::size_t hashValue(FinderPopName const& name)
{
    return HashCombiner().add(name.title).add(name.sortName).add(name.isSeparator).add(name.hotkey).add(name.orderingPrefix).result();
}

} // namespace zv
