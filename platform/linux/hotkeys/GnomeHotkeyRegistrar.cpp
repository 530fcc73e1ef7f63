#include "platform/linux/hotkeys/GnomeHotkeyRegistrar.h"

#include "platform/linux/hotkeys/KeyNames.h"
#include "platform/linux/toolkit/BusListener.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QStringList>

#include <array>

namespace zv {

namespace {

constexpr int patience = 500; // milliseconds

QString extension() { return QStringLiteral("org.zanthevell.Shell"); }

QString extensionPath() { return QStringLiteral("/org/zanthevell/Shell"); }

QDBusMessage callTo(char const* method, QVariantList const& arguments)
{
    auto message = QDBusMessage::createMethodCall(extension(), extensionPath(), extension(), QString::fromLatin1(method));
    message.setArguments(arguments);
    return message;
}

QString nameOf(KeyChord chord) { return QStringLiteral("%1-%2").arg(chord.modifiers).arg(chord.keyCode); }

KeyChord chordOf(QString const& name)
{
    auto const parts = name.split(u'-');
    return { parts.value(1).toUShort(), parts.value(0).toUInt() };
}

/// In the notation of GTK's accelerators: "<Super><Alt>e".
QString acceleratorOf(KeyChord chord, std::vector<KeyTexts> const& layers)
{
    static constexpr std::array<std::pair<std::uint32_t, char const*>, 4> words { { { commandKey, "<Super>" }, { controlKey, "<Control>" },
        { optionKey, "<Alt>" }, { shiftKey, "<Shift>" } } };
    return chordText(chord, words, layers).remove(u'+');
}

} // namespace

GnomeHotkeyRegistrar::GnomeHotkeyRegistrar(QDBusConnection const& bus, KeyboardLayoutSource& layout)
    : m_bus(bus)
    , m_layout(layout)
    , m_service(extension(), bus, QDBusServiceWatcher::WatchForRegistration)
{
    listen();
    QObject::connect(&m_service, &QDBusServiceWatcher::serviceRegistered, &m_service, [this] { lost(); });
}

GnomeHotkeyRegistrar::~GnomeHotkeyRegistrar() { releaseAll(); }

bool GnomeHotkeyRegistrar::isThere(QDBusConnection const& bus)
{
    auto* names = bus.interface();
    return names && names->isServiceRegistered(extension());
}

void GnomeHotkeyRegistrar::useBus(QDBusConnection const& bus)
{
    m_bus = bus;
    m_service.setConnection(bus);
    listen();
    lost();
}

void GnomeHotkeyRegistrar::listen()
{
    m_presses = std::make_unique<BusListener>(m_bus, extension(), extensionPath(), extension(), QStringLiteral("Pressed"),
        [this](QDBusMessage const& message) { pressed(chordOf(message.arguments().value(0).toString())); });
}

bool GnomeHotkeyRegistrar::claim(KeyChord chord)
{
    auto const accelerator = acceleratorOf(chord, m_layout.layers());
    if (accelerator.isEmpty())
        return false;
    return m_bus.call(callTo("Claim", { nameOf(chord), accelerator }), QDBus::Block, patience).arguments().value(0).toBool();
}

void GnomeHotkeyRegistrar::release(KeyChord chord) { m_bus.call(callTo("Release", { nameOf(chord) }), QDBus::Block, patience); }

} // namespace zv
