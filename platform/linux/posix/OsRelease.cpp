#include "platform/linux/posix/OsRelease.h"

#include "base/Split.h"
#include "platform/linux/posix/WholeFiles.h"

#include <string_view>

namespace zv {

namespace {

/// Removes the shell quoting of a value: surrounding quotes, and backslashes before special characters.
std::string unquoted(std::string_view text)
{
    bool const isQuoted = text.size() >= 2 && (text.front() == '"' || text.front() == '\'') && text.back() == text.front();
    if (isQuoted)
        text = text.substr(1, text.size() - 2);
    std::string value;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size())
            ++i;
        value += text[i];
    }
    return value;
}

} // namespace

std::map<std::string, std::string> readOsRelease(std::string const& path)
{
    std::map<std::string, std::string> values;
    auto const text = readTextFile(path).value_or("");
    for (auto const line : split(text, '\n')) {
        auto const equals = line.find('=');
        if (equals != std::string_view::npos && !line.starts_with('#'))
            values[std::string(line.substr(0, equals))] = unquoted(line.substr(equals + 1));
    }
    return values;
}

} // namespace zv
