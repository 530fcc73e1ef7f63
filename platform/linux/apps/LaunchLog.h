#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zv {

/// Remembers the applications that this program started, newest last, so that they count as
/// recently used: the desktop's own list knows only those that opened a document. A small
/// text file, one "SECONDS PATH" a line. Any thread and process; writers take turns.
class LaunchLog {
public:
    struct Launch {
        std::int64_t time = 0; ///< seconds since 1970
        std::string path; ///< path of the application entry or program
    };
    static constexpr std::size_t capacity = 200;

    explicit LaunchLog(std::string path);

    /// Missing and damaged lines are skipped.
    [[nodiscard]] std::vector<Launch> read() const;
    /// Replaces an earlier launch of the same path. A failure to write is ignored: the entry is
    /// not worth an alert.
    void add(Launch const& launch) const;

private:
    std::string m_path;
};

} // namespace zv
