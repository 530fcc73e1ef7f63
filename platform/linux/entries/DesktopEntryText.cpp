#include "platform/linux/entries/DesktopEntryText.h"

#include "platform/linux/entries/ApplicationEntry.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <glib.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace zv {

namespace {

constexpr std::string_view mainGroup = "[Desktop Entry]";
constexpr std::size_t pieceSize = 8192;
constexpr std::size_t mostBytes = std::size_t { 512 } << 10;
constexpr std::size_t mostNameBytes = 1024;

std::string_view withoutBlanks(std::string_view text)
{
    auto const isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// "\s", "\n", "\t", "\r" and "\\", as key files write them.
std::string unescaped(std::string_view value)
{
    static constexpr std::string_view letters = "sntr\\";
    static constexpr std::string_view meanings = " \n\t\r\\";
    std::string plain;
    for (std::size_t i = 0; i < value.size(); ++i) {
        auto const letter = value[i] == '\\' && i + 1 < value.size() ? letters.find(value[i + 1]) : std::string_view::npos;
        if (letter == std::string_view::npos) {
            plain += value[i];
            continue;
        }
        plain += meanings[letter];
        ++i;
    }
    return plain;
}

bool listsAny(std::string_view list, std::string_view wanted)
{
    while (!list.empty()) {
        auto const end = std::min(list.find(';'), list.size());
        if (withoutBlanks(list.substr(0, end)) == wanted)
            return true;
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return false;
}

/// The main group's lines, one by one.
class EntryReading {
public:
    explicit EntryReading(DesktopAudience const& audience)
        : m_audience(audience)
        , m_rank(audience.languages.size() + 1)
    {
    }

    void readLine(std::string_view key, std::string_view value)
    {
        if (key == "Name" || (key.starts_with("Name[") && key.ends_with(']')))
            readName(key.substr(4), value);
        else if (key == "NoDisplay" || key == "Hidden")
            m_isHidden |= value == "true" || value == "1";
        else if (key == "OnlyShowIn")
            m_onlyShowIn = value;
        else if (key == "NotShowIn")
            m_notShowIn = value;
    }

    [[nodiscard]] DesktopEntryText result() const
    {
        DesktopEntryText entry;
        entry.name = withValidUtf8(unescaped(m_name).substr(0, mostNameBytes));
        entry.isListed = !m_isHidden && isMeantForAudience();
        return entry;
    }

private:
    /// `suffix` is "" or "[de]". A lower rank is a better language.
    void readName(std::string_view suffix, std::string_view value)
    {
        auto const rank = suffix.empty() ? m_audience.languages.size() : rankOf(suffix.substr(1, suffix.size() - 2));
        if (rank >= m_rank)
            return;
        m_rank = rank;
        m_name = value;
    }
    [[nodiscard]] std::size_t rankOf(std::string_view language) const
    {
        auto const& languages = m_audience.languages;
        auto const found = std::find(languages.begin(), languages.end(), language);
        return found == languages.end() ? languages.size() + 1 : static_cast<std::size_t>(found - languages.begin());
    }
    [[nodiscard]] bool isMeantForAudience() const
    {
        for (auto const& desktop : m_audience.desktops) {
            if (m_onlyShowIn && listsAny(*m_onlyShowIn, desktop))
                return true;
            if (m_notShowIn && listsAny(*m_notShowIn, desktop))
                return false;
        }
        return !m_onlyShowIn;
    }

    DesktopAudience const& m_audience;
    std::size_t m_rank;
    std::string_view m_name;
    bool m_isHidden = false;
    std::optional<std::string_view> m_onlyShowIn;
    std::optional<std::string_view> m_notShowIn;
};

/// Takes the next line off the text.
std::string_view nextLine(std::string_view& text)
{
    auto const end = std::min(text.find('\n'), text.size());
    auto const line = withoutBlanks(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

/// A group after the main one has begun: what follows says nothing more.
bool holdsWholeMainGroup(std::string_view text)
{
    auto const start = text.find(mainGroup);
    return start != std::string_view::npos && text.find("\n[", start) != std::string_view::npos;
}

bool isPlainFile(int file)
{
    struct stat status { };
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

std::string readMainGroup(int file)
{
    std::string text;
    while (text.size() < mostBytes) {
        auto const size = text.size();
        text.resize(size + pieceSize);
        auto const count = ::read(file, text.data() + size, pieceSize);
        text.resize(size + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count <= 0 || holdsWholeMainGroup(text))
            break;
    }
    return text;
}

} // namespace

DesktopAudience DesktopAudience::current()
{
    DesktopAudience audience;
    for (auto const* const* language = g_get_language_names(); *language; ++language)
        audience.languages.emplace_back(*language);
    audience.desktops = currentDesktops();
    return audience;
}

DesktopEntryText DesktopEntryText::parse(std::string_view text, DesktopAudience const& audience)
{
    EntryReading reading(audience);
    bool isInMainGroup = false;
    while (!text.empty()) {
        auto const line = nextLine(text);
        if (line.starts_with('[')) {
            if (isInMainGroup)
                break;
            isInMainGroup = line == mainGroup;
            continue;
        }
        auto const equals = line.find('=');
        if (isInMainGroup && !line.starts_with('#') && equals != std::string_view::npos)
            reading.readLine(withoutBlanks(line.substr(0, equals)), withoutBlanks(line.substr(equals + 1)));
    }
    return reading.result();
}

DesktopEntryText DesktopEntryText::read(int folder, char const* name, DesktopAudience const& audience)
{
    int const file = openat(folder, name, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (file < 0)
        return {};
    auto const entry = isPlainFile(file) ? parse(readMainGroup(file), audience) : DesktopEntryText {};
    close(file);
    return entry;
}

} // namespace zv
