#pragma once

#include "platform/files/UserDefaults.h"

#include <string>
#include <vector>

namespace zv::fakes {

/// Settings in memory; records the writes.
class FakeUserDefaults : public UserDefaults {
public:
    std::optional<PropertyList> object(std::string_view key) const override
    {
        if (auto const stored = isLocked(key) ? std::nullopt : storedObject(key))
            return stored;
        auto const givenValue = givenObject(key);
        return givenValue ? givenValue : copy(registered.find(key));
    }
    std::optional<PropertyList> givenObject(std::string_view key) const override { return copy(given.find(key)); }
    bool isLocked(std::string_view key) const override { return locked == key; }
    std::optional<PropertyList> storedObject(std::string_view key) const override { return copy(stored.find(key)); }
    std::optional<PropertyList> objectToOverwrite(std::string_view key) override { return othersMenu ? othersMenu : storedObject(key); }
    Result<void> setObject(std::string_view key, PropertyList value) override
    {
        writes.emplace_back(key);
        stored.set(key, std::move(value));
        return writing;
    }
    Result<void> removeObject(std::string_view key) override
    {
        stored.remove(key);
        return writing;
    }
    void registerDefaults(PropertyListDictionary const& defaults) override
    {
        for (auto const& [key, value] : defaults)
            registered.set(key, value);
    }

    PropertyListDictionary stored;
    PropertyListDictionary registered;
    PropertyListDictionary given; ///< an administrator's
    std::string locked; ///< a key that an administrator has fixed
    std::optional<PropertyList> othersMenu; ///< stored by another process, and not read yet
    std::vector<std::string> writes; ///< keys, in the order they were written
    Result<void> writing; ///< the result of every write

private:
    static std::optional<PropertyList> copy(PropertyList const* value) { return value ? std::optional(*value) : std::nullopt; }
};

} // namespace zv::fakes
