#include "platform/linux/apps/LaunchLog.h"

#include "base/Split.h"
#include "platform/linux/posix/FileLock.h"
#include "platform/linux/posix/WholeFiles.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace zv {

namespace {

constexpr mode_t privateFolder = 0700;
constexpr mode_t privateFile = 0600;
constexpr std::chrono::seconds patience { 1 };

void addLine(std::vector<LaunchLog::Launch>& launches, std::string_view line)
{
    auto const blank = line.find(' ');
    if (blank == std::string_view::npos || blank + 1 >= line.size() || line[blank + 1] != '/')
        return;
    LaunchLog::Launch launch { 0, std::string(line.substr(blank + 1)) };
    auto const [end, error] = std::from_chars(line.data(), line.data() + blank, launch.time);
    if (error == std::errc {} && end == line.data() + blank)
        launches.push_back(std::move(launch));
}

std::string textOf(std::vector<LaunchLog::Launch> const& launches)
{
    std::string text;
    for (auto const& launch : launches)
        text += std::to_string(launch.time) + " " + launch.path + "\n";
    return text;
}

} // namespace

LaunchLog::LaunchLog(std::string path)
    : m_path(std::move(path))
{
}

std::vector<LaunchLog::Launch> LaunchLog::read() const
{
    auto const text = readTextFile(m_path).value_or("");
    std::vector<Launch> launches;
    for (auto const line : split(text, '\n'))
        addLine(launches, line);
    return launches;
}

void LaunchLog::add(Launch const& launch) const
{
    if (!launch.path.starts_with('/') || launch.path.find('\n') != std::string::npos)
        return;
    (void)makeFolders(folderOf(m_path), privateFolder);
    auto const lock = lockFile(m_path + ".lock", patience);
    if (!lock)
        return;
    auto launches = read();
    std::erase_if(launches, [&](Launch const& earlier) { return earlier.path == launch.path; });
    launches.push_back(launch);
    if (launches.size() > capacity)
        launches.erase(launches.begin(), launches.end() - capacity);

    auto const text = textOf(launches);
    (void)replaceFile(m_path, m_path + ".new", std::as_bytes(std::span(text)), privateFile);
}

} // namespace zv
