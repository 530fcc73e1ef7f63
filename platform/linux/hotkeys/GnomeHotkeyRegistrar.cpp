#include "platform/linux/hotkeys/GnomeHotkeyRegistrar.h"

#include "platform/linux/hotkeys/KeyNames.h"

#include <QDBusMessage>

#include <array>

namespace zv {

namespace {

QString extension() { return QStringLiteral("org.zanthevell.Shell"); }

QString extensionPath() { return QStringLiteral("/org/zanthevell/Shell"); }

QDBusMessage callTo(char const* method) { return QDBusMessage::createMethodCall(extension(), extensionPath(), extension(), QString::fromLatin1(method)); }

} // namespace

GnomeHotkeyRegistrar::GnomeHotkeyRegistrar(QDBusConnection const& bus, KeyboardLayoutSource& layout)
    : BusChordRegistrar(bus, layout, { extension(), extensionPath(), extension(), QStringLiteral("Pressed") })
{
}

bool GnomeHotkeyRegistrar::isThere(QDBusConnection const& bus) { return isServed(bus, extension()); }

void GnomeHotkeyRegistrar::heard(QVariantList const& arguments) { pressed(chordNamed(arguments.value(0).toString())); }

/// In the notation of GTK's accelerators: "<Super><Alt>e".
QString GnomeHotkeyRegistrar::nameOf(KeyChord chord) const
{
    static constexpr std::array<std::pair<std::uint32_t, char const*>, 4> words { { { commandKey, "<Super>" }, { controlKey, "<Control>" },
        { optionKey, "<Alt>" }, { shiftKey, "<Shift>" } } };
    return chordText(chord, words, layers()).remove(u'+');
}

bool GnomeHotkeyRegistrar::claim(KeyChord chord, QString const& name) { return ask(callTo("Claim"), { chordName(chord), name }).toBool(); }

void GnomeHotkeyRegistrar::release(KeyChord chord, QString const&) { (void)ask(callTo("Release"), { chordName(chord) }); }

} // namespace zv
