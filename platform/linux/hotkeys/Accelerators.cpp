#include "platform/linux/hotkeys/Accelerators.h"

#include "platform/menubar/HotkeyRegistrar.h"

#include <QString>

#include <algorithm>
#include <array>
#include <xkbcommon/xkbcommon.h>

namespace zv {

namespace {

/// Those that are written, then other names of the same (gtk_accelerator_parse).
constexpr std::pair<char const*, std::uint32_t> modifierWords[] = { { "Super", commandKey }, { "Control", controlKey }, { "Alt", optionKey },
    { "Shift", shiftKey }, { "Mod4", commandKey }, { "Ctrl", controlKey }, { "Primary", controlKey }, { "Mod1", optionKey } };
constexpr std::size_t writtenWords = 4;
constexpr char const* escape = "Escape";

xkb_keysym_t symbolOf(DesktopKey::Combination const& combination)
{
    auto const key = QString::fromStdString(combination.key);
    auto const name = key == QLatin1String("esc") ? QByteArray(escape) : key.toUtf8();
    if (combination.isNamed)
        return xkb_keysym_from_name(name.constData(), XKB_KEYSYM_CASE_INSENSITIVE);
    auto const characters = key.toUcs4();
    return characters.size() == 1 ? xkb_utf32_to_keysym(characters.first()) : xkb_keysym_t { XKB_KEY_NoSymbol };
}

std::string nameOf(xkb_keysym_t symbol)
{
    std::array<char, 64> name {};
    return symbol != XKB_KEY_NoSymbol && xkb_keysym_get_name(symbol, name.data(), name.size()) > 0 ? name.data() : "";
}

DesktopKey::Combination combinationOf(xkb_keysym_t symbol, std::uint32_t modifiers)
{
    auto const typed = static_cast<char32_t>(xkb_keysym_to_utf32(xkb_keysym_to_lower(symbol)));
    if (typed >= U' ' && typed != 0x7F)
        return { QString::fromUcs4(&typed, 1).toStdString(), false, modifiers };
    auto const name = nameOf(symbol);
    return { name == escape ? "esc" : QString::fromStdString(name).toLower().toStdString(), true, modifiers };
}

/// Takes the words of modifiers off the beginning.
std::optional<std::uint32_t> takeModifiers(QString& text)
{
    std::uint32_t modifiers = 0;
    while (text.startsWith(u'<')) {
        auto const end = text.indexOf(u'>');
        auto const word = text.mid(1, end - 1);
        auto const* const found
            = std::ranges::find_if(modifierWords, [&](auto const& each) { return word.compare(QLatin1String(each.first), Qt::CaseInsensitive) == 0; });
        if (end < 0 || found == std::end(modifierWords))
            return std::nullopt;
        modifiers |= found->second;
        text.remove(0, end + 1);
    }
    return modifiers;
}

} // namespace

std::string acceleratorFor(DesktopKey::Combination const& combination)
{
    auto const name = nameOf(symbolOf(combination));
    if (name.empty())
        return {};
    std::string text;
    for (auto const& [word, modifier] : std::span(modifierWords).first<writtenWords>())
        text += (combination.modifiers & modifier) != 0 ? "<" + std::string(word) + ">" : "";
    return text + name;
}

std::optional<DesktopKey::Combination> combinationIn(std::string const& accelerator)
{
    auto text = QString::fromStdString(accelerator);
    auto const modifiers = takeModifiers(text);
    auto const symbol = xkb_keysym_from_name(text.toUtf8().constData(), XKB_KEYSYM_CASE_INSENSITIVE);
    return modifiers && symbol != XKB_KEY_NoSymbol ? std::optional(combinationOf(symbol, *modifiers)) : std::nullopt;
}

} // namespace zv
