#include "platform/linux/files/LinuxFolderReader.h"

#include "base/Split.h"
#include "platform/linux/entries/ApplicationEntry.h"
#include "platform/linux/entries/PackageName.h"
#include "platform/linux/posix/WholeFiles.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <span>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_set>
#include <utility>

namespace zv {

namespace {

constexpr std::size_t bufferSize = std::size_t { 32 } << 10;
constexpr std::size_t mostNameBytes = 1024; ///< limit for an application's name, which comes from an arbitrary file
constexpr std::size_t mostHiddenListBytes = std::size_t { 1 } << 20;

enum class EntryType { file, folder, link, unknown };

EntryType typeOf(unsigned char direntType)
{
    switch (direntType) {
    case DT_DIR:
        return EntryType::folder;
    case DT_LNK:
        return EntryType::link;
    case DT_UNKNOWN:
        return EntryType::unknown;
    default:
        return EntryType::file;
    }
}

FolderReadFailure failureOf(int error)
{
    switch (error) {
    case EACCES:
    case EPERM:
        return FolderReadFailure::notPermitted;
    case ENOENT:
    case ELOOP:
        return FolderReadFailure::notFound;
    case ENOTDIR:
        return FolderReadFailure::notAFolder;
    default:
        return FolderReadFailure::failed;
    }
}

/// The names listed in a folder's own ".hidden" file.
class HiddenList {
public:
    explicit HiddenList(int folder)
        : m_text(load(folder))
    {
        auto const lines = split(m_text, '\n');
        m_names.insert(lines.begin(), lines.end());
    }
    HiddenList(HiddenList const&) = delete;
    HiddenList& operator=(HiddenList const&) = delete;

    [[nodiscard]] bool contains(std::string_view name) const { return m_names.contains(name); }

    static constexpr char const* fileName = ".hidden";

private:
    static std::string load(int folder)
    {
        auto const file = openPlainFile(fileName, folder, O_NOFOLLOW);
        return file ? readText(*file, mostHiddenListBytes).value_or("") : "";
    }

    std::string m_text;
    std::unordered_set<std::string_view> m_names;
};

/// A single read of an open folder.
class FolderPass {
public:
    struct Over {
        DesktopAudience const& audience;
        StartTrust const& trust;
        MountWatch& mounts;
    };

    FolderPass(int folder, std::string path, HiddenFiles hiddenFiles, Over const& over)
        : m_folder(folder)
        , m_path(std::move(path))
        , m_skipsHidden(hiddenFiles == HiddenFiles::skipped)
        , m_over(over)
    {
    }

    Result<FolderContents, FolderReadFailure> run()
    {
        alignas(dirent64) std::array<std::byte, bufferSize> buffer; // filled by each call, then read up to the returned size
        while (true) {
            auto const count = getdents64(m_folder, buffer.data(), buffer.size());
            if (m_firstAnswer == Time {})
                m_firstAnswer = std::chrono::steady_clock::now();
            if (count < 0)
                return Failure { failureOf(errno) };
            if (count == 0)
                return whole();
            takeAll({ buffer.data(), static_cast<std::size_t>(count) });
        }
    }

    using Time = std::chrono::steady_clock::time_point;
    /// When the file system had answered for the first time.
    [[nodiscard]] Time firstAnswer() const { return m_firstAnswer; }

private:
    /// The folder's own list is asked for only where it is there: on a server each look takes its time.
    FolderContents whole()
    {
        if (m_hasHiddenList) {
            HiddenList const hidden(m_folder);
            m_contents.removeNamed([&](std::string_view name) { return hidden.contains(name); });
        }
        return std::move(m_contents);
    }

    void takeAll(std::span<std::byte const> records)
    {
        for (std::size_t offset = 0; offset < records.size();) {
            auto const* const record = reinterpret_cast<dirent64 const*>(records.data() + offset);
            take(record->d_name, typeOf(record->d_type));
            offset += record->d_reclen;
        }
    }

    void take(char const* name, EntryType type)
    {
        std::string_view const text = name;
        if (text.starts_with('.') && (m_skipsHidden || text == "." || text == ".."))
            return noteHidden(text);
        if (type == EntryType::unknown)
            type = askForType(name);
        if (type == EntryType::folder)
            m_contents.add({ text, {}, { true, isPackageFolderName(text) }, false });
        else if (type == EntryType::link)
            takeLink(name);
        else if (isApplicationEntryName(text))
            takeApplicationEntry(name);
        else
            add(text, {});
    }

    void noteHidden(std::string_view name) { m_hasHiddenList = m_hasHiddenList || (m_skipsHidden && name == HiddenList::fileName); }

    [[nodiscard]] EntryType askForType(char const* name) const
    {
        struct stat status { };
        if (fstatat(m_folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0)
            return EntryType::file;
        if (S_ISDIR(status.st_mode))
            return EntryType::folder;
        return S_ISLNK(status.st_mode) ? EntryType::link : EntryType::file;
    }

    void takeLink(char const* name)
    {
        if (isPlainFileAtOnce(name)) {
            add(name, {});
            return;
        }
        auto const fate = mounts().table.follow(m_path + "/" + name);
        auto const targetName = lastPathComponent(fate.path);
        if (fate.kind == MountTable::Fate::Kind::missing)
            add(name, { .fault = FileFault::leadsNowhere });
        else if (fate.kind == MountTable::Fate::Kind::remote)
            add(name, FileTraits { pathExtension(name).empty(), false });
        else if (fate.isDirectory)
            add(name, { true, isPackageFolderName(targetName) });
        else if (isApplicationEntryName(targetName) && isApplicationEntryName(name))
            takeApplicationEntry(name);
        else
            add(name, FileTraits { false, isApplicationEntryName(targetName) });
    }

    /// Checks a link with a single call, as most lead to plain files; only where nothing remote can be in the way.
    [[nodiscard]] bool isPlainFileAtOnce(char const* name)
    {
        struct stat status { };
        if (mounts().hasRemote)
            return false;
        if (fstatat(m_folder, name, &status, 0) != 0)
            return false;
        return !S_ISDIR(status.st_mode) && !isApplicationEntryName(targetOf(name));
    }

    [[nodiscard]] std::string_view targetOf(char const* name)
    {
        auto const length = readlinkat(m_folder, name, m_target.data(), m_target.size());
        return { m_target.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0)) };
    }

    void takeApplicationEntry(char const* name)
    {
        auto const text = readDesktopEntry(m_folder, name);
        DesktopEntry const entry(text);
        if (!entry.isListed(m_over.audience.desktops))
            return;
        auto const shown = m_over.trust.trusts(m_path + "/" + name) ? entry.translated("Name", m_over.audience.languages) : "";
        auto const needed = entry.text("TryExec");
        auto const fault = needed.empty() || isInstalled(needed) ? FileFault::none : FileFault::programMissing;
        m_contents.add({ name, withValidUtf8(shown.substr(0, mostNameBytes)), { false, true, fault } });
    }

    void add(std::string_view name, FileTraits traits) { m_contents.add({ name, {}, traits }); }

    MountWatch::Snapshot const& mounts()
    {
        if (!m_snapshot)
            m_snapshot = m_over.mounts.current();
        return *m_snapshot;
    }

    int m_folder;
    std::string m_path;
    bool m_skipsHidden;
    bool m_hasHiddenList = false;
    Over m_over;
    std::shared_ptr<MountWatch::Snapshot const> m_snapshot; ///< loaded at the first link
    std::array<char, PATH_MAX> m_target;
    FolderContents m_contents;
    Time m_firstAnswer {};
};

unsigned maskFor(FileMeasure what)
{
    if (what == FileMeasure::size)
        return STATX_SIZE;
    return what == FileMeasure::dateAdded ? STATX_BTIME : STATX_MTIME;
}

std::int64_t measureOf(int folder, std::string const& name, FileMeasure what)
{
    struct statx status { };
    if (::statx(folder, name.c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, maskFor(what), &status) != 0)
        return 0;
    if (what == FileMeasure::size)
        return static_cast<std::int64_t>(status.stx_size);
    auto const& time = what == FileMeasure::dateAdded ? status.stx_btime : status.stx_mtime;
    return time.tv_sec * 1'000'000'000 + time.tv_nsec;
}

} // namespace

LinuxFolderReader::LinuxFolderReader(DesktopAudience audience, std::string mountInfoPath, NameDoubts doubts)
    : m_audience(std::move(audience))
    , m_mounts(std::move(mountInfoPath))
    , m_doubts(std::move(doubts))
{
}

Result<FolderContents, FolderReadFailure> LinuxFolderReader::read(Url const& folder, HiddenFiles hiddenFiles) const
{
    auto path = folder.path();
    auto const asked = std::chrono::steady_clock::now();
    FileDescriptor const open(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!open.isOpen())
        return Failure { failureOf(errno) };
    FolderPass pass(open.get(), std::move(path), hiddenFiles, { m_audience, m_doubts.trust, m_mounts });
    auto contents = pass.run();
    if (struct stat status {}; ::fstat(open.get(), &status) == 0)
        m_mounts.noteAnswer(status.st_dev, pass.firstAnswer() - asked);
    return contents;
}

/// A folder keeps no date of its own for what came into it: a file counts as added when it was made.
std::vector<std::int64_t> LinuxFolderReader::measure(Url const& folder, FolderContents const& contents, FileMeasure what) const
{
    std::vector<std::int64_t> measures(contents.size(), 0);
    FileDescriptor const open(::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    for (std::size_t i = 0; open.isOpen() && i < contents.size(); ++i)
        measures[i] = measureOf(open.get(), std::string(contents[i].name), what);
    return measures;
}

bool LinuxFolderReader::isRemote(Url const& folder) const { return m_mounts.isRemote(folder.path()); }

std::optional<NameDoubt> LinuxFolderReader::doubtAbout(Url const& file) const { return m_doubts.about(file.path(), m_mounts.current()->table); }

} // namespace zv
