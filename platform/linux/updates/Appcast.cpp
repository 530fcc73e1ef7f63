#include "platform/program/Appcast.h"

#include "platform/linux/toolkit/ErrorText.h"

#include <QXmlStreamReader>

namespace zv {

namespace {

constexpr std::size_t maximumItems = 1000;

std::string trimmedText(QStringView text) { return text.trimmed().toString().toStdString(); }

QStringView attribute(QXmlStreamAttributes const& attributes, QLatin1StringView name)
{
    for (auto const& candidate : attributes) {
        if (candidate.name() == name)
            return candidate.value();
    }
    return {};
}

void takeIfSet(std::string& field, QStringView value)
{
    if (!value.isEmpty())
        field = trimmedText(value);
}

/// The elements: https://sparkle-project.org/documentation/publishing
void readEnclosure(QXmlStreamReader& xml, AppcastItem& item)
{
    auto const attributes = xml.attributes();
    takeIfSet(item.downloadAddress, attribute(attributes, QLatin1StringView("url")));
    takeIfSet(item.signature, attribute(attributes, QLatin1StringView("edSignature")));
    takeIfSet(item.operatingSystem, attribute(attributes, QLatin1StringView("os")));
    takeIfSet(item.version, attribute(attributes, QLatin1StringView("version")));
    takeIfSet(item.displayVersion, attribute(attributes, QLatin1StringView("shortVersionString")));
    bool isNumber = false;
    auto const length = attribute(attributes, QLatin1StringView("length")).toULongLong(&isNumber);
    if (isNumber && length > 0)
        item.downloadSize = length;
    xml.skipCurrentElement();
}

void readCriticalUpdate(QXmlStreamReader& xml, AppcastItem& item)
{
    item.isCritical = true;
    takeIfSet(item.criticalBefore, attribute(xml.attributes(), QLatin1StringView("version")));
    xml.skipCurrentElement();
}

void readTags(QXmlStreamReader& xml, AppcastItem& item)
{
    while (xml.readNextStartElement()) {
        item.isCritical |= xml.name() == QLatin1StringView("criticalUpdate");
        xml.skipCurrentElement();
    }
}

std::string* fieldFor(QStringView name, AppcastItem& item)
{
    struct Field {
        QLatin1StringView name;
        std::string AppcastItem::*member;
    };
    static constexpr Field fields[] = {
        { QLatin1StringView("version"), &AppcastItem::version },
        { QLatin1StringView("shortVersionString"), &AppcastItem::displayVersion },
        { QLatin1StringView("channel"), &AppcastItem::channel },
        { QLatin1StringView("minimumSystemVersion"), &AppcastItem::minimumSystemVersion },
        { QLatin1StringView("maximumSystemVersion"), &AppcastItem::maximumSystemVersion },
        { QLatin1StringView("description"), &AppcastItem::releaseNotes },
        { QLatin1StringView("link"), &AppcastItem::releasePage },
    };
    for (auto const& field : fields) {
        if (field.name == name)
            return &(item.*field.member);
    }
    return nullptr;
}

/// The text of this element and its descendants. QXmlStreamReader::readElementText() recurses at
/// each level, and a feed may be nested deeper than any stack.
QString textWithin(QXmlStreamReader& xml)
{
    QString text;
    for (int depth = 1; depth > 0 && !xml.atEnd();) {
        auto const token = xml.readNext();
        if (token == QXmlStreamReader::StartElement)
            ++depth;
        else if (token == QXmlStreamReader::EndElement)
            --depth;
        else if (token == QXmlStreamReader::Characters)
            text += xml.text();
    }
    return text;
}

AppcastItem readItem(QXmlStreamReader& xml)
{
    AppcastItem item;
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1StringView("enclosure")) {
            readEnclosure(xml, item);
        } else if (xml.name() == QLatin1StringView("tags")) {
            readTags(xml, item);
        } else if (xml.name() == QLatin1StringView("criticalUpdate")) {
            readCriticalUpdate(xml, item);
        } else if (auto* field = fieldFor(xml.name(), item)) {
            takeIfSet(*field, textWithin(xml));
        } else {
            xml.skipCurrentElement();
        }
    }
    if (item.version.empty())
        item.version = item.displayVersion;
    return item;
}

} // namespace

Result<std::vector<AppcastItem>> readAppcast(std::span<std::byte const> bytes)
{
    QXmlStreamReader xml(QByteArray::fromRawData(reinterpret_cast<char const*>(bytes.data()), static_cast<qsizetype>(bytes.size())));
    std::vector<AppcastItem> items;
    bool isFeed = false;
    while (!xml.atEnd() && items.size() < maximumItems) {
        auto const token = xml.readNext();
        if (token == QXmlStreamReader::DTD)
            return Failure { std::string("it declares a document type of its own") };
        if (token != QXmlStreamReader::StartElement)
            continue;
        isFeed |= xml.name() == QLatin1StringView("rss");
        if (!isFeed)
            return Failure { std::string("it is not a feed") };
        if (xml.name() == QLatin1StringView("item"))
            items.push_back(readItem(xml));
    }
    if (xml.hasError())
        return Failure { "line " + std::to_string(xml.lineNumber()) + ": " + reasonFrom(xml.errorString()) };
    if (!isFeed)
        return Failure { std::string("it is empty") };
    return items;
}

} // namespace zv
