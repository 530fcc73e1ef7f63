#include "platform/linux/hotkeys/BindingLines.h"

#include "platform/linux/hotkeys/KeyNames.h"
#include "platform/linux/hotkeys/VirtualKeys.h"

#include <QString>

#include <algorithm>
#include <array>

namespace zv {

namespace {

struct Binding {
    KeyChord chord;
    QString modifiers; ///< joined by "+"; empty for none
    QString key;
    QString command;
};

/// sway(5): "$$" is a dollar.
QString swayLine(Binding const& binding)
{
    auto const chord = binding.modifiers.isEmpty() ? binding.key : binding.modifiers + u'+' + binding.key;
    return QStringLiteral("bindsym %1 exec %2").arg(chord, QString(binding.command).replace(u'$', QLatin1String("$$")));
}

/// https://wiki.hyprland.org/Configuring/Binds; "##" is a number sign.
QString hyprlandLine(Binding const& binding)
{
    return QStringLiteral("bind = %1, %2, exec, %3")
        .arg(QString(binding.modifiers).replace(u'+', u' '), binding.key, QString(binding.command).replace(u'#', QLatin1String("##")));
}

/// labwc-config(5)
QString labwcLine(Binding const& binding)
{
    auto const chord = QString(binding.modifiers).remove(u'+') + binding.key;
    return QStringLiteral(R"(<keybind key="%1"><action name="Execute" command="%2"/></keybind>)").arg(chord, binding.command.toHtmlEscaped());
}

/// riverctl(1), which has its own shell run what it is given.
QString riverLine(Binding const& binding)
{
    auto const modifiers = binding.modifiers.isEmpty() ? QStringLiteral("None") : binding.modifiers;
    auto const quoted = QString(binding.command).replace(u'\'', QLatin1String("'\\''"));
    return QStringLiteral("riverctl map normal %1 %2 spawn '%3'").arg(modifiers, binding.key, quoted);
}

/// Two lines for the section [command], where a key is named by its place (linux/input-event-codes.h): only letters,
/// digits and F keys have the names that are written here.
QString wayfireLine(Binding const& binding)
{
    auto const keys = virtualKeys();
    auto const key = std::ranges::find(keys, binding.chord.keyCode, &VirtualKey::code);
    if (key == keys.end())
        return {};
    auto const name = key->usText.empty() ? binding.key : QString::fromUtf8(key->usText.data(), static_cast<qsizetype>(key->usText.size()));
    if (!std::ranges::all_of(name, [](QChar c) { return c.unicode() < 128 && c.isLetterOrNumber(); }) || name == QLatin1String("Escape"))
        return {};
    auto const number = QStringLiteral("zanthe_vell_%1_%2").arg(binding.chord.modifiers).arg(binding.chord.keyCode);
    auto const modifiers = QString(binding.modifiers).replace(u'+', u' ');
    return QStringLiteral("binding_%1 = %2 KEY_%3\ncommand_%1 = %4").arg(number, modifiers, name.toUpper(), binding.command);
}

struct Notation {
    char const* desktop;
    char const* file;
    std::array<char const*, 4> words; ///< of Command, Control, Option and Shift
    QString (*line)(Binding const& binding);
};

constexpr Notation notations[] = {
    { "sway", "~/.config/sway/config", { "Mod4", "Control", "Mod1", "Shift" }, swayLine },
    { "Hyprland", "~/.config/hypr/hyprland.conf", { "SUPER", "CTRL", "ALT", "SHIFT" }, hyprlandLine },
    { "labwc", "~/.config/labwc/rc.xml", { "W-", "C-", "A-", "S-" }, labwcLine },
    { "river", "~/.config/river/init", { "Super", "Control", "Alt", "Shift" }, riverLine },
    { "wayfire", "~/.config/wayfire.ini", { "<super>", "<ctrl>", "<alt>", "<shift>" }, wayfireLine },
};

Notation const* notationOf(std::string_view desktopNames)
{
    auto const names = QString::fromUtf8(desktopNames.data(), static_cast<qsizetype>(desktopNames.size()));
    auto const* const found
        = std::ranges::find_if(notations, [&](Notation const& each) { return names.contains(QLatin1String(each.desktop), Qt::CaseInsensitive); });
    return found == std::end(notations) ? nullptr : found;
}

/// A line of a configuration ends where the line does.
bool isOneLine(std::string const& command)
{
    return std::ranges::none_of(command, [](unsigned char c) { return c < 0x20 || c == 0x7F; });
}

} // namespace

std::optional<KeyBindingLine> bindingLineFor(std::string_view desktopNames, KeyChord chord, std::string const& command, std::vector<KeyTexts> const& layers)
{
    auto const* notation = notationOf(desktopNames);
    if (!notation || !isOneLine(command))
        return std::nullopt;
    std::array<std::pair<std::uint32_t, char const*>, 4> const words { { { commandKey, notation->words[0] }, { controlKey, notation->words[1] },
        { optionKey, notation->words[2] }, { shiftKey, notation->words[3] } } };
    auto const whole = chordText(chord, words, layers);
    auto const end = whole.lastIndexOf(u'+');
    auto const line
        = whole.isEmpty() ? QString() : notation->line({ chord, whole.left(std::max<qsizetype>(end, 0)), whole.mid(end + 1), QString::fromStdString(command) });
    return line.isEmpty() ? std::nullopt : std::optional(KeyBindingLine { notation->file, line.toStdString() });
}

} // namespace zv
