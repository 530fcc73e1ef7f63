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

PlistUserDefaults::~PlistUserDefaults() { finish(); }

std::optional<PropertyList> PlistUserDefaults::object(std::string_view key) const
{
    auto const* value = isLocked(key) ? nullptr : stored().find(key);
    if (!value)
        value = m_given.values.find(key);
    return copyOf(value ? value : m_registered.find(key));
}

std::optional<PropertyList> PlistUserDefaults::givenObject(std::string_view key) const { return copyOf(m_given.values.find(key)); }

std::optional<PropertyList> PlistUserDefaults::storedObject(std::string_view key) const { return copyOf(stored().find(key)); }

std::optional<PropertyList> PlistUserDefaults::objectToOverwrite(std::string_view key)
{
    finish();
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
    finish();
    if (isInFile(key, value))
        return {};
    stored().set(key, std::move(value));
    m_unsaved.emplace(key);
    return writeNow(key);
}

bool PlistUserDefaults::isInFile(std::string_view key, PropertyList const& value) const
{
    auto const* known = stored().find(key);
    return known && *known == value && m_unsaved.empty() && !m_file.hasChanged();
}

Result<void> PlistUserDefaults::removeObject(std::string_view key)
{
    assertMainThread();
    if (isLocked(key))
        return Failure { "it is locked for all users of this machine" };
    finish();
    if (!stored().contains(key) && m_unsaved.empty() && !m_file.hasChanged())
        return {};
    stored().remove(key);
    m_unsaved.emplace(key);
    return writeNow(key);
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
    if (m_writing)
        return; // looks when that has ended
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

Result<void> PlistUserDefaults::writeNow(std::string_view key)
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
    finish();
    if (!m_unsaved.empty())
        (void)writeNow(*m_unsaved.begin()); // whoever set it was told of the failure
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

// Writing on another thread

void PlistUserDefaults::save(std::string_view key, PropertyList value, Then then)
{
    assertMainThread();
    bool const isThere = !m_writing && isInFile(key, value);
    if (!m_tasks || isThere || isLocked(key))
        return then(setObject(key, std::move(value)));
    stored().set(key, std::move(value));
    m_unsaved.emplace(key);
    m_waiting.push_back({ std::string(key), std::move(then) });
    if (!m_writing)
        beginWriting();
}

void PlistUserDefaults::beginWriting()
{
    m_writing = std::make_shared<Writing>(Writing { m_stored, std::exchange(m_unsaved, {}), std::exchange(m_waiting, {}), {} });
    auto outcome = std::make_shared<std::promise<Written>>();
    m_writing->outcome = outcome->get_future();
    auto work = [this, writing = m_writing, outcome] {
        outcome->set_value(writeAside(writing->settings));
        return writing;
    };
    m_tasks->inBackground(TaskPriority::user, std::move(work), m_lifetime.guard([this](auto const& writing) {
        if (writing == m_writing) // nobody has waited for it
            endWriting();
        handleChange();
    }));
}

/// On the other thread.
PlistUserDefaults::Written PlistUserDefaults::writeAside(PropertyList const& settings)
{
    auto const lock = m_file.lock();
    if (!lock)
        return Result<void>(Failure { lock.error() });
    auto const bytes = m_file.hasChanged() ? Failure { std::string() } : writePropertyList(settings);
    return bytes ? Written(m_file.write(*bytes)) : std::nullopt;
}

/// Takes the file back, tells the outcome, and goes on with what was saved meanwhile.
void PlistUserDefaults::endWriting()
{
    auto const written = m_writing->outcome.get();
    auto const ended = std::exchange(m_writing, nullptr);
    if (!written || !*written)
        m_unsaved.merge(ended->keys);
    for (auto const& [key, then] : ended->savings)
        then(written ? *written : writeUnsaved(key));
    if (!m_waiting.empty() && !m_writing)
        beginWriting();
}

/// Another value's write may have taken this one along.
Result<void> PlistUserDefaults::writeUnsaved(std::string_view key) { return m_unsaved.contains(key) ? writeNow(key) : Result<void>(); }

void PlistUserDefaults::finish()
{
    while (m_writing)
        endWriting();
}

} // namespace zv
