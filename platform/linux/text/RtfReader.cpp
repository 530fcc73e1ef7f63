#include "platform/linux/text/RtfReader.h"

#include "base/Utf8.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <map>
#include <string_view>
#include <utility>

namespace zv {

namespace {

constexpr std::size_t maximumGroupDepth = 200;
// Microsoft, Rich Text Format (RTF), version 1.9.1
constexpr double twipsPerPoint = 20;

/// The destination of a group's text.
enum class Destination { body, colorTable, fieldInstruction, nowhere };

struct State {
    Destination destination = Destination::body;
    RtfDocument::Run style; ///< only the style; its text is unused
    int unicodeSkip = 1; ///< bytes to pass over after \u
};

/// Windows-1252 for the bytes 0x80 to 0x9F, which differ from Latin-1; 0 where undefined:
/// https://www.unicode.org/Public/MAPPINGS/VENDORS/MICSFT/WINDOWS/CP1252.TXT
constexpr std::array<char32_t, 32> windows1252 { 0x20AC, 0, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0, 0x017D,
    0, 0, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0, 0x017E, 0x0178 };

class Reader {
public:
    explicit Reader(std::string_view text)
        : m_text(text)
    {
        m_document.paragraphs.emplace_back();
    }

    RtfDocument read()
    {
        while (m_position < m_text.size())
            readToken();
        if (m_document.paragraphs.back().runs.empty())
            m_document.paragraphs.pop_back();
        return std::move(m_document);
    }

private:
    void readToken()
    {
        char const c = m_text[m_position++];
        if (c == '{')
            return openGroup();
        if (c == '}')
            return closeGroup();
        if (c == '\\')
            return readControl();
        if (c != '\r' && c != '\n')
            emitByte(static_cast<unsigned char>(c));
    }

    void openGroup()
    {
        m_bytesToSkip = 0;
        if (m_stack.size() < maximumGroupDepth)
            m_stack.push_back(m_state);
        else
            ++m_groupsTooDeep;
    }

    void closeGroup()
    {
        m_bytesToSkip = 0;
        if (m_groupsTooDeep > 0) {
            --m_groupsTooDeep;
            return;
        }
        if (m_stack.empty())
            return;
        bool const endsInstruction = m_state.destination == Destination::fieldInstruction && m_stack.back().destination != Destination::fieldInstruction;
        m_state = m_stack.back();
        m_stack.pop_back();
        if (endsInstruction)
            takeLink();
    }

    /// Makes the field's result a link if its instruction is HYPERLINK "https://…".
    void takeLink()
    {
        auto const open = m_instruction.find('"');
        auto const close = m_instruction.rfind('"');
        bool const isLink = m_instruction.find("HYPERLINK") != std::string::npos && open != std::string::npos && close > open;
        m_pendingLink = isLink ? m_instruction.substr(open + 1, close - open - 1) : std::string();
        m_instruction.clear();
    }

    void readControl()
    {
        if (m_position >= m_text.size())
            return;
        char const c = m_text[m_position];
        if (std::isalpha(static_cast<unsigned char>(c)))
            return readWord();
        ++m_position;
        if (c == '\'')
            return readHexByte();
        if (c == '*')
            m_state.destination = Destination::nowhere; // a known destination may replace it
        else if (c == '~')
            emit(0xA0);
        else if (c == '_')
            emit(0x2011);
        else if (c == '\\' || c == '{' || c == '}')
            emit(static_cast<char32_t>(c));
        else if (c == '\n' || c == '\r')
            endParagraph();
    }

    void readWord()
    {
        auto const start = m_position;
        while (m_position < m_text.size() && std::isalpha(static_cast<unsigned char>(m_text[m_position])))
            ++m_position;
        auto const word = m_text.substr(start, m_position - start);
        auto const digits = m_position;
        if (m_position < m_text.size() && m_text[m_position] == '-')
            ++m_position;
        while (m_position < m_text.size() && std::isdigit(static_cast<unsigned char>(m_text[m_position])))
            ++m_position;
        bool const hasNumber = m_position > digits;
        int const number = hasNumber ? std::atoi(std::string(m_text.substr(digits, std::min<std::size_t>(m_position - digits, 9))).c_str()) : 0;
        if (m_position < m_text.size() && m_text[m_position] == ' ')
            ++m_position;
        apply(word, hasNumber, number);
    }

    void readHexByte()
    {
        auto const digits = std::string(m_text.substr(m_position, 2));
        m_position += digits.size();
        emitByte(static_cast<unsigned char>(std::strtoul(digits.c_str(), nullptr, 16)));
    }

    void apply(std::string_view word, bool hasNumber, int number)
    {
        if (applyDestination(word) || applyCharacter(word, number) || applyColor(word, number))
            return;
        if (m_state.destination == Destination::body)
            applyStyle(word, hasNumber, number);
    }

    bool applyDestination(std::string_view word)
    {
        static std::map<std::string_view, Destination> const destinations { { "colortbl", Destination::colorTable },
            { "fldinst", Destination::fieldInstruction }, { "fonttbl", Destination::nowhere }, { "stylesheet", Destination::nowhere },
            { "info", Destination::nowhere }, { "pict", Destination::nowhere }, { "header", Destination::nowhere }, { "footer", Destination::nowhere } };
        if (word == "fldrslt") {
            m_state.style.link = std::exchange(m_pendingLink, {});
            return true;
        }
        auto const found = destinations.find(word);
        if (found == destinations.end())
            return false;
        m_state.destination = found->second;
        return true;
    }

    bool applyCharacter(std::string_view word, int number)
    {
        static std::map<std::string_view, char32_t> const characters { { "bullet", 0x2022 }, { "emdash", 0x2014 }, { "endash", 0x2013 }, { "lquote", 0x2018 },
            { "rquote", 0x2019 }, { "ldblquote", 0x201C }, { "rdblquote", 0x201D }, { "tab", U'\t' }, { "line", U'\n' } };
        if (auto const found = characters.find(word); found != characters.end()) {
            emit(found->second);
            return true;
        }
        if (word == "u") {
            emitUnicode(number);
            return true;
        }
        if (word == "uc") {
            m_state.unicodeSkip = number;
            return true;
        }
        return false;
    }

    /// Takes a signed 16-bit unit from \u; characters above U+FFFF come as two.
    void emitUnicode(int number)
    {
        auto const unit = static_cast<char32_t>(number < 0 ? number + 65536 : number);
        if (unit >= 0xD800 && unit < 0xDC00) {
            m_highSurrogate = unit;
        } else if (unit >= 0xDC00 && unit < 0xE000 && m_highSurrogate != 0) {
            emit(0x10000 + ((m_highSurrogate - 0xD800) << 10) + (unit - 0xDC00));
            m_highSurrogate = 0;
        } else if (unit < 0xD800 || (unit >= 0xE000 && unit < 0x10000)) {
            emit(unit);
        }
        m_bytesToSkip = m_state.unicodeSkip;
    }

    bool applyColor(std::string_view word, int number)
    {
        if (m_state.destination != Destination::colorTable)
            return false;
        auto const level = static_cast<std::uint8_t>(number);
        if (word == "red")
            m_color.red = level;
        else if (word == "green")
            m_color.green = level;
        else if (word == "blue")
            m_color.blue = level;
        m_colorIsSet = true;
        return true;
    }

    void endColor()
    {
        m_colors.push_back(m_colorIsSet ? std::optional(m_color) : std::nullopt);
        m_color = {};
        m_colorIsSet = false;
    }

    void applyStyle(std::string_view word, bool hasNumber, int number)
    {
        auto& style = m_state.style;
        bool const on = !hasNumber || number != 0;
        if (word == "b")
            style.bold = on;
        else if (word == "i")
            style.italic = on;
        else if (word == "ul")
            style.underline = on;
        else if (word == "ulnone")
            style.underline = false;
        else if (word == "fs" && number > 0)
            style.size = number / 2.0; // the number is in half points
        else if (word == "cf")
            style.color = number >= 0 && static_cast<std::size_t>(number) < m_colors.size() ? m_colors[static_cast<std::size_t>(number)] : std::nullopt;
        else if (word == "plain")
            style = RtfDocument::Run { {}, false, false, false, 12, std::nullopt, style.link };
        else
            applyParagraphStyle(word, number);
    }

    void applyParagraphStyle(std::string_view word, int number)
    {
        auto& paragraph = m_document.paragraphs.back();
        double const points = number / twipsPerPoint;
        if (word == "par")
            endParagraph();
        else if (word == "pard")
            resetParagraph();
        else if (word == "qc")
            paragraph.alignment = RtfDocument::Paragraph::Alignment::center;
        else if (word == "qr")
            paragraph.alignment = RtfDocument::Paragraph::Alignment::right;
        else if (word == "ql")
            paragraph.alignment = RtfDocument::Paragraph::Alignment::left;
        else if (word == "sb")
            paragraph.spaceBefore = points;
        else if (word == "sa")
            paragraph.spaceAfter = points;
        else if (word == "li")
            paragraph.leftIndent = points;
        else if (word == "fi")
            paragraph.firstLineIndent = points;
    }

    void resetParagraph()
    {
        auto runs = std::move(m_document.paragraphs.back().runs);
        m_document.paragraphs.back() = {};
        m_document.paragraphs.back().runs = std::move(runs);
    }

    /// A new paragraph keeps the layout of the one before it, until \pard.
    void endParagraph()
    {
        auto next = m_document.paragraphs.back();
        next.runs.clear();
        m_document.paragraphs.push_back(std::move(next));
    }

    void emitByte(unsigned char byte)
    {
        if (m_bytesToSkip > 0) {
            --m_bytesToSkip;
            return;
        }
        if (m_state.destination == Destination::colorTable && byte == ';')
            return endColor();
        bool const isWindows1252 = byte >= 0x80 && byte < 0xA0;
        emit(isWindows1252 ? windows1252[byte - 0x80] : byte);
    }

    void emit(char32_t c)
    {
        if (c == 0)
            return;
        if (m_state.destination == Destination::fieldInstruction)
            return appendUtf8(m_instruction, c);
        if (m_state.destination != Destination::body)
            return;
        appendUtf8(currentRun().text, c);
    }

    RtfDocument::Run& currentRun()
    {
        auto& runs = m_document.paragraphs.back().runs;
        auto const& style = m_state.style;
        auto const sameColor = [](auto const& a, auto const& b) {
            return a.has_value() == b.has_value() && (!a || (a->red == b->red && a->green == b->green && a->blue == b->blue));
        };
        bool const continues = !runs.empty() && runs.back().bold == style.bold && runs.back().italic == style.italic && runs.back().underline == style.underline
            && runs.back().size == style.size && runs.back().link == style.link && sameColor(runs.back().color, style.color);
        if (!continues)
            runs.push_back(style);
        return runs.back();
    }

    std::string_view m_text;
    std::size_t m_position = 0;
    RtfDocument m_document;
    State m_state;
    std::vector<State> m_stack;
    std::size_t m_groupsTooDeep = 0;
    int m_bytesToSkip = 0;
    char32_t m_highSurrogate = 0;
    std::vector<std::optional<RtfDocument::Color>> m_colors;
    RtfDocument::Color m_color;
    bool m_colorIsSet = false;
    std::string m_instruction;
    std::string m_pendingLink;
};

} // namespace

std::optional<RtfDocument> readRtf(std::span<std::byte const> bytes)
{
    std::string_view const text(reinterpret_cast<char const*>(bytes.data()), bytes.size());
    if (!text.starts_with("{\\rtf"))
        return std::nullopt;
    return Reader(text).read();
}

} // namespace zv
