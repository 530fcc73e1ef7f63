#include "platform/linux/hotkeys/GlobalAccelRegistrar.h"

#include "platform/linux/hotkeys/KeyNames.h"

#include <QDBusArgument>
#include <QDBusMessage>

#include <array>

namespace zv {

namespace {

// https://invent.kde.org/frameworks/kglobalaccel, src/org.kde.KGlobalAccel.xml and …kglobalaccel.Component.xml
QString serviceName() { return QStringLiteral("org.kde.kglobalaccel"); }

constexpr uint setPresent = 2, noAutoloading = 4;

/// What the service calls us.
QString component() { return QStringLiteral("org.zanthevell.ZantheVell"); }

QString componentPath() { return QStringLiteral("/component/") + component().replace(u'.', u'_'); }

QDBusMessage callTo(char const* method)
{
    return QDBusMessage::createMethodCall(serviceName(), QStringLiteral("/kglobalaccel"), QStringLiteral("org.kde.KGlobalAccel"), QString::fromLatin1(method));
}

/// Shown in the desktop's settings.
QString labelOf(KeyChord chord, std::vector<KeyTexts> const& layers)
{
    static constexpr std::array<std::pair<std::uint32_t, char const*>, 4> words { { { commandKey, "Meta" }, { controlKey, "Ctrl" }, { optionKey, "Alt" },
        { shiftKey, "Shift" } } };
    return chordText(chord, words, layers);
}

QStringList identityOf(KeyChord chord, std::vector<KeyTexts> const& layers)
{
    return { component(), chordName(chord), QStringLiteral("Zanthe Vell"), labelOf(chord, layers) };
}

int qtModifiers(std::uint32_t modifiers)
{
    static constexpr std::pair<std::uint32_t, int> pairs[]
        = { { shiftKey, Qt::ShiftModifier }, { controlKey, Qt::ControlModifier }, { optionKey, Qt::AltModifier }, { commandKey, Qt::MetaModifier } };
    int mask = 0;
    for (auto const& [ours, theirs] : pairs)
        mask |= (modifiers & ours) != 0 ? theirs : 0;
    return mask;
}

int keyFor(std::string const& text)
{
    auto const characters = QString::fromStdString(text);
    return characters.size() == 1 ? characters.toUpper().front().unicode() : 0;
}

/// The service reads keys in Latin letters whatever alphabet is selected, where any layout has them.
int typedKey(std::uint16_t code, std::vector<KeyTexts> const& layers)
{
    int first = 0;
    for (auto const& layer : layers) {
        int const key = code < layer.size() ? keyFor(layer[code]) : 0;
        auto const script = QChar(key).script();
        if (key != 0 && (script == QChar::Script_Latin || script == QChar::Script_Common))
            return key;
        first = first == 0 ? key : first;
    }
    return first;
}

/// A key that types nothing, by the name that F5 and Escape have.
int namedKey(QString const& name)
{
    if (name == QLatin1String("Escape"))
        return Qt::Key_Escape;
    int const number = name.startsWith(u'F') ? name.mid(1).toInt() : 0;
    return number > 0 ? Qt::Key_F1 + number - 1 : 0;
}

} // namespace

GlobalAccelRegistrar::GlobalAccelRegistrar(QDBusConnection const& bus, KeyboardLayoutSource& layout, ShiftedText shifted)
    : BusChordRegistrar(
        bus, layout, { serviceName(), componentPath(), QStringLiteral("org.kde.kglobalaccel.Component"), QStringLiteral("globalShortcutPressed") })
    , m_shifted(std::move(shifted))
{
    qRegisterMetaType<QList<int>>();
}

bool GlobalAccelRegistrar::isThere(QDBusConnection const& bus) { return isServed(bus, serviceName()); }

void GlobalAccelRegistrar::heard(QVariantList const& arguments)
{
    if (arguments.value(0).toString() == component())
        pressed(chordNamed(arguments.value(1).toString()));
}

/// With Shift a key that is no letter counts as what it types then: Meta and $, not Meta, Shift and 4.
int GlobalAccelRegistrar::keyOf(KeyChord chord) const
{
    auto const texts = layers();
    int const named = namedKey(chordText({ chord.keyCode, 0 }, {}, texts));
    if (named != 0)
        return qtModifiers(chord.modifiers) | named;
    int const key = typedKey(chord.keyCode, texts);
    if (key == 0)
        return 0;
    int const shifted = (chord.modifiers & shiftKey) != 0 && !QChar(key).isLetter() ? keyFor(m_shifted(chord.keyCode)) : 0;
    return shifted != 0 ? qtModifiers(chord.modifiers & ~std::uint32_t { shiftKey }) | shifted : qtModifiers(chord.modifiers) | key;
}

/// The service's names are numbers.
QString GlobalAccelRegistrar::nameOf(KeyChord chord) const
{
    int const key = keyOf(chord);
    return key == 0 ? QString() : QString::number(key);
}

bool GlobalAccelRegistrar::claim(KeyChord chord, QString const& name)
{
    int const key = name.toInt();
    auto const identity = identityOf(chord, layers());
    (void)ask(callTo("doRegister"), { identity });
    auto const given = ask(callTo("setShortcut"), { identity, QVariant::fromValue(QList<int> { key }), setPresent | noAutoloading });
    if (qdbus_cast<QList<int>>(given) == QList<int> { key })
        return true;
    release(chord, name);
    return false;
}

void GlobalAccelRegistrar::release(KeyChord chord, QString const&) { (void)ask(callTo("unregister"), { component(), chordName(chord) }); }

} // namespace zv
