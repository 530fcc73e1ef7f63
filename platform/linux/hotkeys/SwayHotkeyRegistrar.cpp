#include "platform/linux/hotkeys/SwayHotkeyRegistrar.h"

#include "platform/linux/hotkeys/KeyNames.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QStringList>

#include <array>
#include <cstring>
#include <map>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

namespace zv {

namespace {

// sway-ipc(7): a message is these six letters, its length, its type and its text.
constexpr char const magic[] = "i3-ipc";
constexpr qsizetype magicSize = sizeof magic - 1;
constexpr qsizetype headerSize = magicSize + 2 * sizeof(std::uint32_t);
enum Request : std::uint32_t { runCommand = 0, subscribe = 2, getConfig = 9, getInputs = 100 };
enum Event : std::uint32_t { workspaceEvent = 0x80000000U, bindingEvent = 0x80000005U, inputEvent = 0x80000015U };

constexpr std::array<std::pair<std::uint32_t, char const*>, 4> words { { { commandKey, "Mod4" }, { optionKey, "Mod1" }, { controlKey, "Control" },
    { shiftKey, "Shift" } } };

FileDescriptor connectedTo(std::string const& path)
{
    sockaddr_un address { AF_UNIX, {} };
    FileDescriptor connection(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    timeval const patience { 1, 0 };
    ::setsockopt(connection.get(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    if (path.empty() || path.size() >= sizeof address.sun_path)
        return FileDescriptor(-1);
    path.copy(address.sun_path, path.size());
    bool const isThere = ::connect(connection.get(), reinterpret_cast<sockaddr const*>(&address), sizeof address) == 0;
    return isThere ? std::move(connection) : FileDescriptor(-1);
}

bool send(FileDescriptor const& to, std::uint32_t type, QByteArray const& text)
{
    auto message = QByteArray(magic, magicSize);
    std::uint32_t const header[] { static_cast<std::uint32_t>(text.size()), type };
    message.append(reinterpret_cast<char const*>(header), sizeof header);
    message.append(text);
    return ::send(to.get(), message.constData(), static_cast<std::size_t>(message.size()), MSG_NOSIGNAL) == message.size();
}

std::uint32_t numberAt(QByteArray const& data, qsizetype place)
{
    std::uint32_t number = 0;
    std::memcpy(&number, data.constData() + place, sizeof number);
    return number;
}

/// The size of the message that the data begin with; nothing while its header is not there.
std::optional<qsizetype> messageSize(QByteArray const& data)
{
    if (data.size() < headerSize)
        return std::nullopt;
    return headerSize + numberAt(data, magicSize);
}

/// Appends what has come; false when the connection has ended.
bool readMore(FileDescriptor const& from, QByteArray& data, int flags)
{
    std::array<char, 4096> part {};
    auto const length = ::recv(from.get(), part.data(), part.size(), flags);
    if (length > 0)
        data.append(part.data(), length);
    return length > 0;
}

QString normal(QString word, std::map<QString, QString> const& variables)
{
    for (auto const& [name, value] : variables)
        word.replace(name, value);
    static std::map<QString, QString> const synonyms { { QStringLiteral("super"), QStringLiteral("mod4") }, { QStringLiteral("logo"), QStringLiteral("mod4") },
        { QStringLiteral("alt"), QStringLiteral("mod1") }, { QStringLiteral("ctrl"), QStringLiteral("control") } };
    QStringList parts;
    for (auto const& part : word.toLower().split(u'+')) {
        auto const synonym = synonyms.find(part);
        parts.append(synonym == synonyms.end() ? part : synonym->second);
    }
    parts.sort();
    return parts.join(u'+');
}

std::optional<std::uint32_t> layoutOf(QJsonObject const& device)
{
    int const number = device.value(QStringLiteral("xkb_active_layout_index")).toInt(-1);
    return number >= 0 ? std::optional(static_cast<std::uint32_t>(number)) : std::nullopt;
}

QString commandOf(KeyChord chord) { return QStringLiteral("nop zanthe-vell %1 %2").arg(chord.modifiers).arg(chord.keyCode); }

std::optional<KeyChord> chordOf(QString const& command)
{
    auto const parts = command.split(u' ');
    if (parts.size() != 4 || parts[0] != QLatin1String("nop") || parts[1] != QLatin1String("zanthe-vell"))
        return std::nullopt;
    return KeyChord { parts[3].toUShort(), parts[2].toUInt() };
}

} // namespace

std::unique_ptr<SwayHotkeyRegistrar> SwayHotkeyRegistrar::open(std::string const& socket, KeyboardLayoutSource& layout)
{
    auto commands = connectedTo(socket);
    auto events = connectedTo(socket);
    if (commands.get() < 0 || events.get() < 0 || !send(events, subscribe, R"(["binding","workspace","input"])"))
        return nullptr;
    return std::unique_ptr<SwayHotkeyRegistrar>(new SwayHotkeyRegistrar(std::move(commands), std::move(events), layout));
}

SwayHotkeyRegistrar::SwayHotkeyRegistrar(FileDescriptor commands, FileDescriptor events, KeyboardLayoutSource& layout)
    : m_commands(std::move(commands))
    , m_events(std::move(events))
    , m_layout(layout)
    , m_news(m_events.get(), QSocketNotifier::Read)
{
    QObject::connect(&m_news, &QSocketNotifier::activated, &m_news, [this] { readEvents(); });
    readConfiguration();
}

SwayHotkeyRegistrar::~SwayHotkeyRegistrar() { releaseAll(); }

QByteArray SwayHotkeyRegistrar::ask(std::uint32_t type, QByteArray const& text) const
{
    QByteArray answer;
    if (!send(m_commands, type, text))
        return answer;
    while (!messageSize(answer) || answer.size() < *messageSize(answer)) {
        if (!readMore(m_commands, answer, 0))
            return {};
    }
    return answer.mid(headerSize);
}

bool SwayHotkeyRegistrar::isDone(QByteArray const& command) const
{
    auto const answers = QJsonDocument::fromJson(ask(runCommand, command)).array();
    return answers.size() == 1 && answers.first().toObject().value(QStringLiteral("success")).toBool();
}

void SwayHotkeyRegistrar::readConfiguration()
{
    m_mentioned = keysIn(QJsonDocument::fromJson(ask(getConfig, {})).object().value(QStringLiteral("config")).toString());
}

/// Files that it includes are not in the text that sway gives.
std::set<QString> SwayHotkeyRegistrar::keysIn(QString const& configuration)
{
    static QRegularExpression const blanks(QStringLiteral("\\s+"));
    std::map<QString, QString> variables;
    std::set<QString> keys;
    for (auto const& line : configuration.split(u'\n')) {
        auto words = line.trimmed().split(blanks);
        auto const first = words.takeFirst();
        if (first == QLatin1String("set") && words.size() == 2)
            variables[words[0]] = words[1];
        if (first != QLatin1String("bindsym") && first != QLatin1String("bindcode"))
            continue;
        while (!words.isEmpty() && words.first().startsWith(QLatin1String("--")))
            words.removeFirst();
        if (!words.isEmpty())
            keys.insert(normal(words.first(), variables));
    }
    return keys;
}

std::optional<std::uint32_t> SwayHotkeyRegistrar::layout() const
{
    for (auto const device : QJsonDocument::fromJson(ask(getInputs, {})).array()) {
        if (auto const found = layoutOf(device.toObject()))
            return found;
    }
    return std::nullopt;
}

QString SwayHotkeyRegistrar::nameOf(KeyChord chord) const { return chordText(chord, words, m_layout.layers()); }

bool SwayHotkeyRegistrar::claim(KeyChord chord, QString const& name)
{
    bool const isFree = !m_mentioned.contains(normal(name, {}));
    return isFree && isDone(QStringLiteral("bindsym --no-repeat %1 %2").arg(name, commandOf(chord)).toUtf8());
}

void SwayHotkeyRegistrar::release(KeyChord, QString const& name) { (void)isDone(QStringLiteral("unbindsym --no-repeat %1").arg(name).toUtf8()); }

void SwayHotkeyRegistrar::readEvents()
{
    if (!readMore(m_events, m_unread, MSG_DONTWAIT))
        return m_news.setEnabled(false);
    for (auto size = messageSize(m_unread); size && m_unread.size() >= *size; size = messageSize(m_unread)) {
        auto const type = numberAt(m_unread, magicSize + static_cast<qsizetype>(sizeof(std::uint32_t)));
        auto const event = m_unread.mid(headerSize, *size - headerSize);
        m_unread.remove(0, *size);
        heard(type, event);
    }
}

/// A reload forgets bindings made at run time.
void SwayHotkeyRegistrar::heard(std::uint32_t type, QByteArray const& event)
{
    auto const facts = QJsonDocument::fromJson(event).object();
    auto const change = facts.value(QStringLiteral("change")).toString();
    if (type == bindingEvent && change == QLatin1String("run")) {
        if (auto const chord = chordOf(facts.value(QStringLiteral("binding")).toObject().value(QStringLiteral("command")).toString()))
            pressed(*chord);
    } else if (type == workspaceEvent && change == QLatin1String("reload")) {
        readConfiguration();
        lost();
    } else if (type == inputEvent && change == QLatin1String("xkb_layout")) {
        auto const number = layoutOf(facts.value(QStringLiteral("input")).toObject());
        if (number && onLayout)
            onLayout(*number);
    }
}

} // namespace zv
