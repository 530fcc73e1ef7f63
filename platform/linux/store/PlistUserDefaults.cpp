#include "platform/linux/store/PlistUserDefaults.h"

#include "base/Log.h"
#include "base/MainThread.h"
#include "platform/linux/posix/WholeFiles.h"
#include "platform/text/PropertyListFormat.h"

#include <unordered_map>
#include <utility>

namespace zv {

namespace {

using Cause = SettingsFile::ReadFailure::Cause;

std::optional<PropertyList> copyOf(PropertyList const* value) { return value ? std::optional(*value) : std::nullopt; }

/// Indexes the values, as others may keep any number of keys in the file.
std::unordered_map<std::string_view, PropertyList const*> valuesByKey(PropertyListDictionary const& settings)
{
    std::unordered_map<std::string_view, PropertyList const*> values;
    values.reserve(settings.size());
    for (auto const& [key, value] : settings)
        values.emplace(key, &value);
    return values;
}

bool canBeWritten(std::string const& key, PropertyList const* value) { return !value || writePropertyList(PropertyListDictionary { { key, *value } }).ok(); }

} // namespace

PlistUserDefaults::PlistUserDefaults(std::string path, std::chrono::milliseconds patience, GivenSettings given)
    : m_file(std::move(path), patience)
    , m_given(std::move(given))
{
    reload();
    m_unannounced.clear();
}

std::optional<PropertyList> PlistUserDefaults::object(std::string_view key) const
{
    auto const* value = isLocked(key) ? nullptr : stored().find(key);
    if (!value)
        value = m_given.values.find(key);
    return copyOf(value ? value : m_registered.find(key));
}

std::optional<PropertyList> PlistUserDefaults::givenObject(std::string_view key) const { return copyOf(m_given.values.find(key)); }

std::optional<PropertyList> PlistUserDefaults::storedObject(std::string_view key) const { return copyOf(stored().find(key)); }

std::optional<PropertyList> PlistUserDefaults::objectToOverwrite(std::string_view key) const
{
    if (m_unsaved.empty() && !m_file.hasChanged())
        return storedObject(key);
    auto const disk = SettingsFile(m_file.path()).read();
    return disk ? copyOf(disk->find(key)) : std::nullopt;
}

Result<void> PlistUserDefaults::setObject(std::string_view key, PropertyList value)
{
    assertMainThread();
    if (isLocked(key))
        return Failure { "it is locked for all users of this machine" };
    auto const* known = stored().find(key);
    if (known && *known == value && m_unsaved.empty() && !m_file.hasChanged())
        return {};
    stored().set(key, std::move(value));
    m_unsaved.emplace(key);
    return save(key);
}

Result<void> PlistUserDefaults::removeObject(std::string_view key)
{
    assertMainThread();
    if (isLocked(key))
        return Failure { "it is locked for all users of this machine" };
    if (!stored().contains(key) && m_unsaved.empty() && !m_file.hasChanged())
        return {};
    stored().remove(key);
    m_unsaved.emplace(key);
    return save(key);
}

void PlistUserDefaults::registerDefaults(PropertyListDictionary const& defaults)
{
    for (auto const& [key, value] : defaults)
        m_registered.set(key, value);
}

int PlistUserDefaults::changeDescriptor()
{
    if (!m_watch) {
        // A failure shows as a watch that does not work.
        (void)makeFolders(folderOf(m_file.path()), 0700);
        m_watch.emplace(m_file.path());
        handleChange();
    }
    return m_watch->descriptor();
}

void PlistUserDefaults::handleChange()
{
    assertMainThread();
    if (m_watch)
        m_watch->takeEvents();
    if (m_file.hasChanged())
        reload();
    announce();
}

// Reading

void PlistUserDefaults::reload()
{
    auto disk = m_file.read();
    if (disk)
        return adopt(std::move(*disk));
    if (disk.error().cause == Cause::content)
        return setAside(disk.error().reason);
    logLine("the settings in " + m_file.path() + " could not be read: " + disk.error().reason);
}

void PlistUserDefaults::adopt(PropertyListDictionary disk)
{
    noteDifferences(disk);
    overlay(disk, m_unsaved);
    stored() = std::move(disk);
}

void PlistUserDefaults::overlay(PropertyListDictionary& settings, KeySet const& keys) const
{
    for (auto const& key : keys) {
        if (auto const* value = stored().find(key))
            settings.set(key, *value);
        else
            settings.remove(key);
    }
}

void PlistUserDefaults::noteDifferences(PropertyListDictionary const& disk)
{
    auto known = valuesByKey(stored());
    for (auto const& [key, value] : disk) {
        auto const found = known.find(key);
        if (found == known.end() || *found->second != value)
            m_unannounced.insert(key);
        if (found != known.end())
            known.erase(found);
    }
    for (auto const& [key, value] : known)
        m_unannounced.emplace(key);
    for (auto const& key : m_unsaved)
        m_unannounced.erase(key);
}

void PlistUserDefaults::announce()
{
    auto const changed = std::exchange(m_unannounced, {});
    if (!changed.empty() && onExternalChange)
        onExternalChange({ changed.begin(), changed.end() });
}

void PlistUserDefaults::setAside(std::string const& reason)
{
    auto const lock = m_file.lock();
    if (!lock)
        return logLine(unreadableMessage(reason) + ", nor be kept aside: " + lock.error());
    // Another process may have written first, or be writing without the lock.
    m_file.awaitWriter();
    auto disk = m_file.read();
    if (disk)
        return adopt(std::move(*disk));
    if (!setAsideUnderLock(reason) || m_unsaved.empty())
        return;
    if (auto const written = writeAll(*m_unsaved.begin()); !written)
        logLine("the settings could not be written to " + m_file.path() + ": " + written.error());
}

bool PlistUserDefaults::setAsideUnderLock(std::string const& reason)
{
    auto const name = m_file.setAside();
    if (!name) {
        logLine(unreadableMessage(reason) + ", nor be kept aside: " + name.error());
        return false;
    }
    logLine(unreadableMessage(reason) + "; it is kept as " + *name);
    // The file is gone, so all known values must be written.
    for (auto const& [key, value] : stored())
        m_unsaved.insert(key);
    return true;
}

std::string PlistUserDefaults::unreadableMessage(std::string const& reason) const
{
    return "the settings file " + m_file.path() + " cannot be read (" + reason + ")";
}

// Writing

Result<void> PlistUserDefaults::save(std::string_view key)
{
    auto const lock = m_file.lock();
    if (!lock)
        return Failure { lock.error() };
    if (auto caughtUp = catchUp(); !caughtUp)
        return caughtUp;
    return writeAll(key);
}

void PlistUserDefaults::writeUnsaved()
{
    assertMainThread();
    if (!m_unsaved.empty())
        (void)save(*m_unsaved.begin()); // whoever set it was told of the failure
}

/// Under the lock only.
Result<void> PlistUserDefaults::writeAll(std::string_view key)
{
    auto const bytes = writePropertyList(m_stored);
    if (!bytes)
        return saveWhatCanBeWritten(key, bytes.error());
    if (auto written = m_file.write(*bytes); !written)
        return written;
    m_unsaved.clear();
    return {};
}

/// Takes over other processes' changes, so that their keys stay. Fails where writing would
/// destroy an unreadable file.
Result<void> PlistUserDefaults::catchUp()
{
    if (!m_file.hasChanged())
        return {};
    auto disk = m_file.read();
    if (disk) {
        adopt(std::move(*disk));
        return {};
    }
    auto const& [cause, reason] = disk.error();
    bool const isSafe = cause == Cause::content && setAsideUnderLock(reason);
    return isSafe ? Result<void>() : Failure { "the file that is there cannot be read: " + reason };
}

/// Saves all values that a property list can hold; the key of any other stays as it was in the
/// file.
Result<void> PlistUserDefaults::saveWhatCanBeWritten(std::string_view key, std::string const& reason)
{
    KeySet writable;
    for (auto const& unsaved : m_unsaved) {
        if (canBeWritten(unsaved, stored().find(unsaved)))
            writable.insert(unsaved);
    }
    auto const bytes = withUnsaved(writable);
    if (writable.empty() || !bytes)
        return Failure { reason };
    if (auto written = m_file.write(*bytes); !written)
        return written;
    bool const isSaved = writable.contains(key);
    std::erase_if(m_unsaved, [&](auto const& unsaved) { return writable.contains(unsaved); });
    return isSaved ? Result<void>() : Failure { reason };
}

Result<std::vector<std::byte>> PlistUserDefaults::withUnsaved(KeySet const& keys)
{
    auto disk = m_file.read();
    if (!disk)
        return Failure { disk.error().reason };
    overlay(*disk, keys);
    return writePropertyList(std::move(*disk));
}

} // namespace zv
