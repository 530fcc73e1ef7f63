#include "platform/linux/store/XmlPropertyListReader.h"

#include "platform/linux/store/PropertyListLimits.h"
#include "platform/linux/store/PropertyListScalars.h"
#include "platform/text/PropertyListFormat.h"
#include "platform/text/Text.h"

#include <expat.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zv {

namespace {

struct FreeParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using Parser = std::unique_ptr<XML_ParserStruct, FreeParser>;

enum class Element : std::uint8_t { plist, array, dictionary, key, string, integer, real, date, data, yes, no };

constexpr std::pair<std::string_view, Element> elements[] = { { "key", Element::key }, { "string", Element::string }, { "dict", Element::dictionary },
    { "array", Element::array }, { "true", Element::yes }, { "false", Element::no }, { "integer", Element::integer }, { "data", Element::data },
    { "real", Element::real }, { "date", Element::date }, { "plist", Element::plist } };

std::optional<Element> elementNamed(std::string_view name)
{
    for (auto const& [known, element] : elements) {
        if (known == name)
            return element;
    }
    return std::nullopt;
}

bool isContainer(Element element) { return element <= Element::dictionary; }

/// An open container: "plist" holds at most one element, as does the document.
struct Level {
    Element element;
    PropertyListArray values {};
    std::vector<PropertyListDictionary::Entry> entries {};
    std::optional<std::string> key {};
};

/// Builds the value while the parser reports the document's tags. Nothing here recurses: the open
/// containers lie in `m_levels`. After a failure the rest is skipped.
class XmlReader {
public:
    explicit XmlReader(std::string_view text)
        : m_text(text)
        , m_parser(XML_ParserCreate(nullptr))
    {
        XML_SetUserData(m_parser.get(), this);
        XML_SetElementHandler(m_parser.get(), startElement, endElement);
        XML_SetCharacterDataHandler(m_parser.get(), characters);
        XML_SetStartDoctypeDeclHandler(m_parser.get(), documentType);
        XML_SetSkippedEntityHandler(m_parser.get(), skippedEntity);
    }

    Result<PropertyList> read()
    {
        auto const status = XML_Parse(m_parser.get(), m_text.data(), static_cast<int>(m_text.size()), XML_TRUE);
        if (!m_failure.empty())
            return Failure { std::move(m_failure) };
        if (status != XML_STATUS_OK)
            return Failure { m_count > 0 && !isValidUtf8(m_text) ? stringNotUtf8 : damagedDocument };
        if (m_document.values.empty())
            return Failure { damagedDocument };
        return std::move(m_document.values.front());
    }

private:
    static XmlReader& self(void* reader) { return *static_cast<XmlReader*>(reader); }

    static void startElement(void* reader, XML_Char const* name, XML_Char const** /*attributes*/) { self(reader).start(name); }

    static void endElement(void* reader, XML_Char const* /*name*/) { self(reader).end(); }

    static void characters(void* reader, XML_Char const* text, int length) { self(reader).append({ text, static_cast<std::size_t>(length) }); }

    static void documentType(void* reader, XML_Char const* /*name*/, XML_Char const* /*system*/, XML_Char const* /*id*/, int hasInternalSubset)
    {
        if (hasInternalSubset)
            self(reader).fail("its document type declares more than a property list needs");
    }

    static void skippedEntity(void* reader, XML_Char const* /*name*/, int /*isParameter*/)
    {
        self(reader).fail("it refers to an entity that it does not hold");
    }

    void fail(std::string_view reason)
    {
        if (m_failure.empty())
            m_failure = reason;
        XML_StopParser(m_parser.get(), XML_FALSE);
    }

    Level& level() { return m_levels.empty() ? m_document : m_levels.back(); }

    void start(std::string_view name)
    {
        if (!m_failure.empty())
            return;
        auto const element = elementNamed(name);
        if (!element || m_scalar || !isAllowed(*element))
            return fail(damagedDocument);
        if (++m_count > maximumPropertyListValues)
            return fail(tooManyValues);
        if (isContainer(*element))
            return descend(*element);
        m_scalar = element;
        m_scalarText.clear();
    }

    bool isAllowed(Element element)
    {
        if (level().element == Element::dictionary)
            return element != Element::plist && (element == Element::key) != level().key.has_value();
        if (element == Element::plist)
            return m_levels.empty();
        bool const isFull = level().element == Element::plist && !level().values.empty();
        return element != Element::key && !isFull;
    }

    void descend(Element element)
    {
        if (element != Element::plist && ++m_depth > maximumPropertyListDepth)
            return fail(tooDeepMessage());
        m_levels.push_back({ element });
    }

    void end()
    {
        if (!m_failure.empty())
            return;
        if (m_scalar)
            endScalar(*std::exchange(m_scalar, std::nullopt));
        else
            endContainer();
    }

    void endScalar(Element element)
    {
        if (element == Element::key)
            level().key = std::move(m_scalarText);
        else if (element == Element::string)
            add(std::move(m_scalarText));
        else if (auto value = scalarValue(element))
            add(std::move(*value));
        else
            fail(unreadableScalar(element));
    }

    std::optional<PropertyList> scalarValue(Element element)
    {
        switch (element) {
        case Element::integer:
            return integerFromText(m_scalarText);
        case Element::real:
            return realFromText(m_scalarText);
        case Element::date:
            return dateFromText(m_scalarText);
        case Element::data:
            return dataFromText(std::move(m_scalarText));
        default:
            return isBlank(m_scalarText) ? std::optional(PropertyList(element == Element::yes)) : std::nullopt;
        }
    }

    static char const* unreadableScalar(Element element)
    {
        switch (element) {
        case Element::integer:
            return "an integer in it cannot be read";
        case Element::real:
            return "a real in it cannot be read";
        case Element::date:
            return "a date in it cannot be read";
        case Element::data:
            return "data in it cannot be read";
        default:
            return damagedDocument;
        }
    }

    void endContainer()
    {
        Level closed = std::move(m_levels.back());
        m_levels.pop_back();
        m_depth -= closed.element == Element::plist ? 0 : 1;
        if (closed.key)
            fail(damagedDocument); // a key without a value
        else if (closed.element == Element::dictionary)
            add(PropertyListDictionary(std::move(closed.entries)));
        else if (closed.element == Element::array)
            add(std::move(closed.values));
        else
            m_document.values = std::move(closed.values);
    }

    void add(PropertyList value)
    {
        auto& parent = level();
        if (parent.element != Element::dictionary)
            return parent.values.push_back(std::move(value));
        parent.entries.emplace_back(std::move(*parent.key), std::move(value));
        parent.key.reset();
    }

    void append(std::string_view text)
    {
        if (!m_failure.empty())
            return;
        if (m_scalar)
            m_scalarText += text;
        else if (!isBlank(text))
            fail(damagedDocument);
    }

    std::string_view m_text;
    Parser m_parser;
    Level m_document { Element::plist };
    std::vector<Level> m_levels;
    std::optional<Element> m_scalar; ///< the open element that is no container
    std::string m_scalarText;
    std::size_t m_count = 0;
    int m_depth = 0;
    std::string m_failure;
};

} // namespace

Result<PropertyList> readXmlPropertyList(std::string_view text) { return XmlReader(text).read(); }

} // namespace zv
