#include "platform/linux/icons/PictureFiles.h"

#include "base/MainThread.h"
#include "platform/linux/icons/MenuImages.h"
#include "platform/linux/posix/WholeFiles.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace zv {

namespace {

constexpr std::size_t mostQuickBytes = std::size_t { 1 } << 20;
constexpr int mostQuickPixels = 1024;
constexpr std::size_t mostBytes = std::size_t { 32 } << 20;
constexpr int mostDecodedMegabytes = 160;
constexpr int mostShownPixels = menuIconSize * 4; // sharp on every screen
constexpr std::size_t mostAtOnce = 2;
constexpr std::size_t mostThreads = 8; ///< with those that hang
constexpr std::size_t mostWaiting = 100;
constexpr std::size_t mostKept = 500;
constexpr std::chrono::seconds patience { 5 };
constexpr std::size_t mostRepetitions = 16;

using Bytes = std::vector<std::byte>;

std::size_t countOf(std::string_view text, std::string_view wanted)
{
    std::size_t count = 0;
    for (auto at = text.find(wanted); at != std::string_view::npos; at = text.find(wanted, at + wanted.size()))
        ++count;
    return count;
}

/// False for a drawing that may open another file or grow beyond all measure, or that is not legible enough to tell.
bool isHarmlessDrawing(Bytes const& bytes)
{
    std::string_view const text(reinterpret_cast<char const*>(bytes.data()), bytes.size());
    bool const isLegible = text.find('<') != std::string_view::npos && text.find('\0') == std::string_view::npos;
    bool const isSelfContained = text.find("image") == std::string_view::npos && text.find("<!ENTITY") == std::string_view::npos;
    return isLegible && isSelfContained && countOf(text, "use") <= mostRepetitions;
}

/// A picture in memory, so that no decoder opens a file.
class Picture {
public:
    explicit Picture(Bytes const& bytes)
        : m_array(QByteArray::fromRawData(reinterpret_cast<char const*>(bytes.data()), static_cast<qsizetype>(bytes.size())))
        , m_buffer(&m_array)
    {
        m_buffer.open(QIODevice::ReadOnly);
        m_reader.setDevice(&m_buffer);
    }
    [[nodiscard]] bool isDrawing() const { return m_reader.format().startsWith("svg"); }
    [[nodiscard]] bool isSmall() const
    {
        auto const size = m_reader.size();
        return size.isValid() && size.width() <= mostQuickPixels && size.height() <= mostQuickPixels;
    }
    [[nodiscard]] QImage shown(int mostPixels = mostShownPixels)
    {
        QSize const largest(mostPixels, mostPixels);
        auto const size = m_reader.size();
        if (size.isValid() && (isDrawing() || size.width() > largest.width() || size.height() > largest.height()))
            m_reader.setScaledSize(size.scaled(largest, Qt::KeepAspectRatio).expandedTo({ 1, 1 }));
        auto image = m_reader.read();
        bool const isLarge = image.width() > largest.width() || image.height() > largest.height();
        return isLarge ? image.scaled(largest, Qt::KeepAspectRatio, Qt::SmoothTransformation) : image;
    }

private:
    QByteArray m_array;
    QBuffer m_buffer;
    QImageReader m_reader;
};

/// The bytes of a picture that may be decoded at once. A drawing is looked through before anything parses it.
std::optional<Bytes> quickBytes(std::string const& path)
{
    auto bytes = readWholeFile(path, mostQuickBytes);
    if (!bytes)
        return std::nullopt;
    Picture const picture(*bytes);
    bool const isQuick = picture.isDrawing() ? isHarmlessDrawing(*bytes) : true;
    return isQuick && picture.isSmall() ? std::optional(std::move(bytes).value()) : std::nullopt;
}

} // namespace

QImage readPicture(std::string const& path, int mostPixels)
{
    auto const bytes = readWholeFile(path, mostBytes);
    return bytes ? Picture(*bytes).shown(mostPixels) : QImage();
}

PictureFiles::PictureFiles(Tasks& tasks, Timers& timers, std::function<void(std::string const& path)> onRead)
    : m_tasks(tasks)
    , m_timers(timers)
    , m_onRead(std::move(onRead))
{
    QImageReader::setAllocationLimit(mostDecodedMegabytes);
}

QImage PictureFiles::picture(std::string const& path)
{
    assertMainThread();
    if (auto const known = m_read.find(path); known != m_read.end())
        return known->second;
    if (auto const bytes = m_mounts.isRemote(path) ? std::nullopt : quickBytes(path))
        return Picture(*bytes).shown();
    readElsewhere(path);
    return {};
}

bool PictureFiles::isQuick(std::string const& path) { return !m_mounts.isRemote(path) && quickBytes(path).has_value(); }

void PictureFiles::readElsewhere(std::string const& path)
{
    if (m_read.size() >= mostKept)
        m_read.clear();
    m_read[path] = {};
    if (m_waiting.size() >= mostWaiting || m_readings.contains(path))
        return;
    m_waiting.push_back(path);
    startNext();
}

void PictureFiles::startNext()
{
    if (m_waiting.empty() || m_readings.size() - m_givenUp >= mostAtOnce || m_readings.size() >= mostThreads)
        return;
    auto const path = std::move(m_waiting.front());
    m_waiting.pop_front();
    m_readings[path].patience = m_timers.after(patience, m_lifetime.guard([this, path] { giveUp(path); }));
    auto done = m_lifetime.guard([this, path](QImage const& picture) { finish(path, picture); });
    m_tasks.runDetached([path, done] { return std::function<void()>([done, picture = readPicture(path, mostShownPixels)]() mutable { done(picture); }); });
}

/// Makes room for the next one; what comes all the same is not wanted any more.
void PictureFiles::giveUp(std::string const& path)
{
    m_readings[path].isGivenUp = true;
    ++m_givenUp;
    startNext();
}

void PictureFiles::finish(std::string const& path, QImage picture)
{
    auto const reading = m_readings.extract(path);
    if (reading.mapped().isGivenUp) {
        --m_givenUp;
    } else if (!picture.isNull()) {
        m_read[path] = std::move(picture);
        m_onRead(path);
    }
    startNext();
}

} // namespace zv
