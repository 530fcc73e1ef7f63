#include "platform/linux/apps/LaunchLog.h"

#include "base/Split.h"
#include "platform/linux/posix/WholeFiles.h"

#include <glib/gstdio.h>

#include <algorithm>
#include <charconv>
#include <string_view>

namespace zv {

namespace {

constexpr int privateFolder = 0700;
constexpr int privateFile = 0600;

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
    auto launches = read();
    std::erase_if(launches, [&](Launch const& earlier) { return earlier.path == launch.path; });
    launches.push_back(launch);
    if (launches.size() > capacity)
        launches.erase(launches.begin(), launches.end() - capacity);

    auto const text = textOf(launches);
    auto const folder = m_path.substr(0, m_path.rfind('/'));
    g_mkdir_with_parents(folder.c_str(), privateFolder);
    g_file_set_contents_full(m_path.c_str(), text.data(), static_cast<gssize>(text.size()), G_FILE_SET_CONTENTS_CONSISTENT, privateFile, nullptr);
}

} // namespace zv
