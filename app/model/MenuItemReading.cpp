#include "app/model/MenuItem.h"
#include "app/model/PlainText.h"
#include "app/model/RecordReader.h"

#include <string>
#include <utility>

namespace zv {

namespace {

/// Reads a tree of records and stops at the first wrong one.
class ItemReader {
public:
    /// False on failure; `items` is then unusable.
    bool readList(PropertyListArray const& records, std::vector<MenuItem>& items)
    {
        items.reserve(records.size());
        for (std::size_t i = 0; i < records.size(); ++i) {
            m_indexPath.push_back(i);
            if (!readItem(records[i], items.emplace_back()))
                return false;
            m_indexPath.pop_back();
        }
        return true;
    }

    [[nodiscard]] ReadFailure const& failure() const { return m_failure; }

private:
    bool readItem(PropertyList const& value, MenuItem& item)
    {
        if (m_indexPath.size() > maximumMenuDepth)
            return fail({ {}, {}, "is nested deeper than " + std::to_string(maximumMenuDepth) + " levels" });
        RecordReader record(value);
        readFields(record, item);
        auto const* children = record.requiredArray("children");
        item.isHidden = record.requiredBoolean("isHidden");
        if (auto const* keys = record.requiredDictionary("unrecognizedKeys"))
            item.unrecognizedKeys = *keys;
        if (!record.ok())
            return fail(*record.failure());
        return readList(*children, item.children);
    }

    static void readFields(RecordReader& record, MenuItem& item)
    {
        if (auto const id = Uuid::parse(record.requiredString("id")))
            item.id = *id;
        else
            record.fail("id", "is not a UUID");
        item.kind = MenuItemKind::fromRawValue(record.requiredString("kind"));
        if (auto const title = record.optionalString("title"))
            item.title = withoutControls(*title);
        item.location = readRecord<ItemLocation>(record, "location");
        item.keyEquivalent = readRecord<KeyEquivalentSpec>(record, "keyEquivalent");
        item.scanDepth = record.optionalInteger("scanDepth");
    }

    template <class T> static std::optional<T> readRecord(RecordReader& record, std::string_view key)
    {
        auto const* value = record.optionalValue(key);
        if (!value)
            return std::nullopt;
        auto read = T::fromPropertyList(*value);
        if (read)
            return std::move(read).value();
        record.fail(key, read.error());
        return std::nullopt;
    }

    bool fail(ReadFailure failure)
    {
        m_failure = std::move(failure);
        m_failure.indexPath = m_indexPath;
        return false;
    }

    std::vector<std::size_t> m_indexPath;
    ReadFailure m_failure;
};

} // namespace

Result<std::vector<MenuItem>, ReadFailure> menuItemsFromPropertyList(PropertyList const& value)
{
    auto const* records = value.array();
    if (!records)
        return Failure { ReadFailure { {}, {}, wrongTypeReason(value, "an array of items") } };
    ItemReader reader;
    std::vector<MenuItem> items;
    if (!reader.readList(*records, items))
        return Failure { reader.failure() };
    return items;
}

} // namespace zv
