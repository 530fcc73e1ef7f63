#include "platform/linux/posix/SmallFiles.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace zv {

namespace {

constexpr std::size_t pieceSize = std::size_t { 64 } << 10;

class Descriptor {
public:
    explicit Descriptor(std::string const& path)
        : m_fd(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY))
    {
    }
    ~Descriptor()
    {
        if (m_fd >= 0)
            close(m_fd);
    }
    Descriptor(Descriptor const&) = delete;
    Descriptor& operator=(Descriptor const&) = delete;

    [[nodiscard]] bool isOpen() const { return m_fd >= 0; }
    [[nodiscard]] bool isPlainFile() const
    {
        struct stat status { };
        return fstat(m_fd, &status) == 0 && S_ISREG(status.st_mode);
    }
    [[nodiscard]] ssize_t read(std::vector<char>& buffer) const
    {
        ssize_t count = 0;
        do
            count = ::read(m_fd, buffer.data(), buffer.size());
        while (count < 0 && errno == EINTR);
        return count;
    }

private:
    int m_fd;
};

} // namespace

FileReading readInPieces(std::string const& path, std::function<bool(std::string_view)> const& take)
{
    Descriptor const file(path);
    if (!file.isOpen())
        return errno == ENOENT || errno == ENOTDIR ? FileReading::missing : FileReading::failed;
    if (!file.isPlainFile())
        return FileReading::failed;
    std::vector<char> buffer(pieceSize);
    while (true) {
        auto const count = file.read(buffer);
        if (count < 0)
            return FileReading::failed;
        if (count == 0 || !take({ buffer.data(), static_cast<std::size_t>(count) }))
            return FileReading::complete;
    }
}

std::optional<std::string> readSmallFile(std::string const& path, std::size_t mostBytes)
{
    std::string text;
    auto const reading = readInPieces(path, [&](std::string_view piece) {
        text += piece;
        return text.size() <= mostBytes;
    });
    if (reading != FileReading::complete || text.size() > mostBytes)
        return std::nullopt;
    return text;
}

} // namespace zv
