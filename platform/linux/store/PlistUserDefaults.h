#pragma once

#include "base/Lifetime.h"
#include "platform/files/UserDefaults.h"
#include "platform/linux/posix/FileWatch.h"
#include "platform/linux/store/GivenSettings.h"
#include "platform/linux/store/SettingsFile.h"
#include "platform/time/Tasks.h"

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zv {

/// Settings in their own XML property list. Several processes may share the file: each writes
/// only the keys that it set itself and keeps all others. An unreadable file is set aside under a
/// dated name, which the log reports.
///
/// Where it has tasks, save() writes on another thread, to which the file then belongs: whoever needs the file meanwhile
/// waits. Only one such write is under way; what is saved meanwhile goes into the next, at once.
class PlistUserDefaults : public UserDefaults {
public:
    explicit PlistUserDefaults(std::string path, std::chrono::milliseconds patience = SettingsFile::usualPatience, GivenSettings given = {});
    ~PlistUserDefaults() override;
    PlistUserDefaults(PlistUserDefaults const&) = delete;
    PlistUserDefaults& operator=(PlistUserDefaults const&) = delete;

    /// For save(). The tasks run until nothing is saved any more.
    void useTasks(Tasks& tasks) { m_tasks = &tasks; }

    [[nodiscard]] std::optional<PropertyList> object(std::string_view key) const override;
    [[nodiscard]] std::optional<PropertyList> storedObject(std::string_view key) const override;
    [[nodiscard]] std::optional<PropertyList> objectToOverwrite(std::string_view key) override;
    [[nodiscard]] Result<void> setObject(std::string_view key, PropertyList value) override;
    void save(std::string_view key, PropertyList value, std::function<void(Result<void>)> then) override;
    [[nodiscard]] Result<void> removeObject(std::string_view key) override;
    [[nodiscard]] std::optional<PropertyList> givenObject(std::string_view key) const override;
    [[nodiscard]] bool isLocked(std::string_view key) const override { return m_given.locked.contains(key); }
    void registerDefaults(PropertyListDictionary const& defaults) override;

    /// Becomes readable when another process may have written; the main loop then calls
    /// handleChange(). The watch begins with the first call, which makes the folder. -1 when
    /// there can be none.
    [[nodiscard]] int changeDescriptor();
    void handleChange();
    /// Waits for what save() began, and writes what an earlier save could not.
    void writeUnsaved();

private:
    using KeySet = std::set<std::string, std::less<>>;
    using Then = std::function<void(Result<void>)>;
    /// Nothing where the main thread has to: another process has written meanwhile, or a value cannot be written.
    using Written = std::optional<Result<void>>;

    struct Saving {
        std::string key;
        Then then;
    };

    /// A write on another thread.
    struct Writing {
        PropertyList settings;
        KeySet keys; ///< not in the file before
        std::vector<Saving> savings;
        std::future<Written> outcome;
    };

    [[nodiscard]] PropertyListDictionary& stored() { return *m_stored.dictionary(); }
    [[nodiscard]] PropertyListDictionary const& stored() const { return *m_stored.dictionary(); }

    [[nodiscard]] bool isInFile(std::string_view key, PropertyList const& value) const;
    [[nodiscard]] Result<void> writeNow(std::string_view key);
    [[nodiscard]] Result<void> writeUnsaved(std::string_view key);
    void beginWriting();
    [[nodiscard]] Written writeAside(PropertyList const& settings);
    void endWriting();
    void finish();
    [[nodiscard]] Result<void> writeAll(std::string_view key);
    [[nodiscard]] Result<void> catchUp();
    [[nodiscard]] Result<void> saveWhatCanBeWritten(std::string_view key, std::string const& reason);
    [[nodiscard]] Result<std::vector<std::byte>> withUnsaved(KeySet const& keys);
    void reload();
    void adopt(PropertyListDictionary disk);
    void overlay(PropertyListDictionary& settings, KeySet const& keys) const;
    void noteDifferences(PropertyListDictionary const& disk);
    void announce();
    void setAside(std::string const& reason);
    [[nodiscard]] bool setAsideUnderLock(std::string const& reason);
    [[nodiscard]] std::string unreadableMessage(std::string const& reason) const;

    SettingsFile m_file;
    std::optional<FileWatch> m_watch;
    PropertyList m_stored = PropertyListDictionary(); ///< the file's content, with values still to be written
    GivenSettings m_given;
    PropertyListDictionary m_registered;
    KeySet m_unsaved; ///< keys set or removed here, and not yet in the file
    KeySet m_unannounced; ///< keys changed by others
    Tasks* m_tasks = nullptr;
    std::shared_ptr<Writing> m_writing; ///< null while the file belongs to the main thread
    std::vector<Saving> m_waiting; ///< for the next write
    Lifetime m_lifetime;
};

} // namespace zv
