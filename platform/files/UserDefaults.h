#pragma once

#include "base/PropertyList.h"
#include "base/Result.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zv {

/// The user's stored settings: one property-list value a key. A registered value stands
/// in for one that is not stored, and is itself never stored. Main thread only.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// The stored value, else the given one, else the registered one, else nothing; a locked key's stored value does not count.
    [[nodiscard]] virtual std::optional<PropertyList> object(std::string_view key) const = 0;
    /// The stored value alone.
    [[nodiscard]] virtual std::optional<PropertyList> storedObject(std::string_view key) const = 0;
    /// The value that a save would overwrite: another process may have stored it, and a value kept in memory
    /// since a failed save is not there.
    [[nodiscard]] virtual std::optional<PropertyList> objectToOverwrite(std::string_view key) { return storedObject(key); }
    /// Stores at once. The failure is a sentence that says why the file could not be written;
    /// the value is then kept in memory, and written with the next one. Callers log it.
    [[nodiscard]] virtual Result<void> setObject(std::string_view key, PropertyList value) = 0;
    /// Like setObject(), for a large value: where storing takes its time, it goes on after this has returned. The value
    /// counts at once, later ones are stored after it, and `then` gets the outcome on the main thread.
    virtual void save(std::string_view key, PropertyList value, std::function<void(Result<void>)> then) { then(setObject(key, std::move(value))); }
    [[nodiscard]] virtual Result<void> removeObject(std::string_view key) = 0;
    /// The value that an administrator gives to everybody; it counts until the user stores another.
    [[nodiscard]] virtual std::optional<PropertyList> givenObject(std::string_view /*key*/) const { return std::nullopt; }
    /// True where an administrator fixed the value: what the user stored does not count, and storing fails.
    [[nodiscard]] virtual bool isLocked(std::string_view /*key*/) const { return false; }
    virtual void registerDefaults(PropertyListDictionary const& defaults) = 0;

    /// setObject for values that nobody waits for: a failure is one line in the log.
    void keep(std::string_view key, PropertyList value);

    /// The lenient reads that settings use: integers and reals other than 0 are true, and texts that begin with
    /// Y, T or a number other than 0 in either case ("yes", "TRUE", "1"); texts are read as far as they are
    /// numbers; else 0.
    [[nodiscard]] bool boolForKey(std::string_view key) const;
    [[nodiscard]] std::int64_t integerForKey(std::string_view key) const;

    /// Called after another process changed what is stored, with the keys that differ now.
    std::function<void(std::vector<std::string> const& keys)> onExternalChange;
};

} // namespace zv
