#include "app/settings/AboutText.h"

#include "base/Translation.h"

#include <sstream>

namespace zv {

namespace {

std::string information(Resources const& resources, char const* key, std::string const& otherwise)
{
    auto const* value = resources.information().string(key);
    return value ? *value : otherwise;
}

void replaceAll(std::string& text, std::string_view what, std::string_view with)
{
    if (what.empty())
        return;
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
}

/// Joins the lines of each paragraph, which the file breaks; a line of dashes becomes a gap.
std::string asParagraphs(std::string const& file)
{
    std::istringstream lines(file);
    std::string text;
    for (std::string line; std::getline(lines, line);) {
        bool const isGap = line.empty() || line.find_first_not_of('-') == std::string::npos;
        bool const begins = text.empty() || text.ends_with('\n');
        if (isGap)
            text += begins ? "" : "\n\n";
        else
            text += (begins ? "" : " ") + line;
    }
    return text;
}

std::string licences(Resources const& resources)
{
    auto const bytes = resources.load("Licences", "txt");
    return bytes ? asParagraphs(std::string(reinterpret_cast<char const*>(bytes->data()), bytes->size())) : std::string();
}

} // namespace

AboutText aboutText(Resources const& resources)
{
    AboutText text;
    text.name = information(resources, "CFBundleDisplayName", "Zanthe Vell");
    text.version = tr("Version %1", information(resources, "CFBundleShortVersionString", trc("version", "unknown")));
    text.purpose = tr("A menu of your own making, wherever you are.");
    text.privacy = tr("No telemetry. The network is used to look for updates, and for nothing else.");
    text.readMeButton = tr("Read Me");
    text.licencesButton = tr("Licences");
    text.diagnosticsButton = tr("Copy Diagnostics");
    text.licences = licences(resources);
    return text;
}

std::string withoutPersonalPaths(std::string text, std::string_view homePath, std::string_view userName)
{
    if (homePath.size() > 1)
        replaceAll(text, homePath, "~");
    if (!userName.empty())
        replaceAll(text, "/" + std::string(userName) + "/", "/user/");
    return text;
}

} // namespace zv
