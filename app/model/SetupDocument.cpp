#include "app/model/SetupDocument.h"

#include "app/model/ItemPicture.h"
#include "app/model/KeptEntries.h"
#include "app/model/MenuShortcut.h"
#include "app/model/PlainText.h"
#include "app/model/Preferences.h"
#include "app/model/RecordReader.h"
#include "platform/text/PropertyListFormat.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace zv {

namespace {

constexpr std::string_view formatKey = "Format";
constexpr std::string_view format = "org.zanthevell.setup";
constexpr std::string_view menuKey = "Menu";
constexpr std::string_view homeKey = "Home";
constexpr std::string_view preferencesKey = "Preferences";
constexpr std::string_view ownItemsKey = "OwnItems";
constexpr std::string_view imagesKey = "Pictures";
constexpr std::array partKeys { formatKey, menuKey, homeKey, preferencesKey, ownItemsKey, imagesKey };
constexpr std::array<unsigned char, 8> pngSignature { 0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n' };

using Problem = std::optional<ReadFailure>;

ReadFailure failureAt(std::string_view key, std::string reason) { return { {}, std::string(key), std::move(reason) }; }

PreferenceDescription const* preferenceOf(std::string_view key)
{
    auto const all = Preferences::descriptions();
    auto const found = std::find_if(all.begin(), all.end(), [key](auto const& each) { return each.key == key; });
    return found == all.end() ? nullptr : &*found;
}

bool isUsable(std::string_view key, PropertyList const& value)
{
    if (key == MenuShortcut::defaultsKey)
        return bool(KeyEquivalentSpec::fromPropertyList(value));
    if (key == KeptEntries::defaultsKey)
        return value.array() && value.array()->size() <= SetupLimits::keptEntries;
    auto const* known = preferenceOf(key);
    if (!known)
        return false;
    auto const number = value.integer();
    return std::holds_alternative<bool>(known->defaultValue) ? value.boolean().has_value() : number && *number >= 0 && *number <= SetupLimits::number;
}

void readPreferences(PropertyListDictionary const& stored, Setup& setup)
{
    for (auto const& [key, value] : stored) {
        if (isUsable(key, value))
            setup.preferences.set(key, value);
        else
            setup.unknown.push_back(key);
    }
}

/// A line, as a form's field gives it.
bool isLine(std::string const& text) { return text.size() <= SetupLimits::textLength && isPlainText(text) && text == withoutControls(text); }

bool isUsable(OwnItem const& own)
{
    if (!isLine(own.title) || !isLine(own.text) || !isLine(own.folder) || own.text.empty())
        return false;
    return own.kind == OwnItem::Kind::link ? Url::parse(own.text).has_value() : own.folder.empty() || own.folder.starts_with('/');
}

Problem readOwnItems(PropertyListDictionary const& stored, Setup& setup)
{
    if (stored.size() > SetupLimits::ownItems)
        return failureAt(ownItemsKey, "has too many records");
    for (auto const& [key, value] : stored) {
        auto const id = Uuid::parse(key);
        auto const own = ownItemOf(value);
        if (!id || (own && !isUsable(*own)))
            return failureAt(ownItemsKey, "has a record that cannot be used");
        if (own)
            setup.ownItems.emplace(*id, *own);
        else // of a kind that a later version knows
            setup.unknown.push_back(std::string(ownItemsKey) + " " + id->toString());
    }
    return std::nullopt;
}

bool isImage(PropertyListData const& data)
{
    auto const isSame = [](unsigned char expected, std::byte found) { return std::byte { expected } == found; };
    return data.size() > pngSignature.size() && data.size() <= SetupLimits::imageSize
        && std::equal(pngSignature.begin(), pngSignature.end(), data.begin(), isSame);
}

Problem readImages(PropertyListDictionary const& stored, Setup& setup)
{
    if (stored.size() > SetupLimits::images)
        return failureAt(imagesKey, "has too many records");
    for (auto const& [name, value] : stored) {
        auto const* data = value.data();
        if (!isPictureName(name) || !data || !isImage(*data))
            return failureAt(imagesKey, "has a record that cannot be used");
        setup.images.emplace(name, *data);
    }
    return std::nullopt;
}

/// A part that is a dictionary; an absent one is empty.
Problem readPart(PropertyListDictionary const& document, std::string_view key, Problem (*read)(PropertyListDictionary const&, Setup&), Setup& setup)
{
    auto const* part = document.find(key);
    if (!part)
        return std::nullopt;
    if (!part->dictionary())
        return failureAt(key, wrongTypeReason(*part, "a dictionary"));
    return read(*part->dictionary(), setup);
}

Problem readParts(PropertyListDictionary const& document, Setup& setup)
{
    auto const preferences = [](PropertyListDictionary const& stored, Setup& read) {
        readPreferences(stored, read);
        return Problem();
    };
    for (auto const& [key, value] : document) {
        if (std::find(partKeys.begin(), partKeys.end(), key) == partKeys.end())
            setup.unknown.push_back(key);
    }
    if (auto const* home = document.string(homeKey); home && home->size() > 1 && home->starts_with('/') && isLine(*home))
        setup.home = *home;
    if (auto problem = readPart(document, preferencesKey, preferences, setup))
        return problem;
    if (auto problem = readPart(document, ownItemsKey, readOwnItems, setup))
        return problem;
    return readPart(document, imagesKey, readImages, setup);
}

PropertyListDictionary const* setupIn(Result<PropertyList> const& document)
{
    auto const* dictionary = document ? document->dictionary() : nullptr;
    auto const* said = dictionary ? dictionary->string(formatKey) : nullptr;
    return said && *said == format ? dictionary : nullptr;
}

} // namespace

Result<std::vector<std::byte>> setupDocument(Setup const& setup)
{
    if (auto const failure = findUnwritable(setup.menu.items))
        return Failure { failure->description() };
    PropertyListDictionary ownItems;
    for (auto const& [id, own] : setup.ownItems)
        ownItems.append(id.toString(), ownItemRecord(own));
    PropertyListDictionary images;
    for (auto const& [name, data] : setup.images)
        images.append(name, data);
    PropertyListDictionary document;
    document.append(formatKey, format);
    document.append(homeKey, textOrData(setup.home));
    document.append(preferencesKey, setup.preferences);
    document.append(ownItemsKey, std::move(ownItems));
    document.append(imagesKey, std::move(images));
    document.append(menuKey, toPropertyList(setup.menu.items));
    return writePropertyList(document);
}

bool isSetup(std::span<std::byte const> bytes) { return setupIn(readPropertyList(bytes)) != nullptr; }

Result<Setup, ReadFailure> readSetup(std::span<std::byte const> bytes, LocationServices services)
{
    auto const document = readPropertyList(bytes);
    if (!document)
        return Failure { failureAt({}, "cannot be read: " + document.error()) };
    auto const* parts = setupIn(document);
    if (!parts)
        return Failure { failureAt({}, "is no export of everything") };
    auto menu = readMenuDocument(bytes, services);
    if (!menu)
        return Failure { menu.error() };
    Setup setup;
    setup.menu = std::move(menu).value();
    if (auto problem = readParts(*parts, setup))
        return Failure { std::move(*problem) };
    return setup;
}

std::vector<std::string_view> setupPreferenceKeys()
{
    std::vector<std::string_view> keys;
    for (auto const& description : Preferences::descriptions())
        keys.push_back(description.key);
    keys.push_back(MenuShortcut::defaultsKey);
    keys.push_back(KeptEntries::defaultsKey);
    return keys;
}

} // namespace zv
