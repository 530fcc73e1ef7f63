#include "app/settings/AboutText.h"

namespace zv {

namespace {

std::string information(Resources const& resources, char const* key, char const* otherwise)
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

std::string licences(Resources const& resources)
{
    auto const bytes = resources.load("Licences", "txt");
    return bytes ? std::string(reinterpret_cast<char const*>(bytes->data()), bytes->size()) : std::string();
}

} // namespace

AboutText aboutText(Resources const& resources)
{
    AboutText text;
    text.name = information(resources, "CFBundleDisplayName", "Zanthe Vell");
    text.version = "Version " + information(resources, "CFBundleShortVersionString", "unknown");
    text.purpose = "A menu of your own making, wherever you are.";
    text.privacy = "No telemetry. The network is used to look for updates, and for nothing else.";
    text.readMeButton = "Read Me";
    text.licencesButton = "Licences";
    text.diagnosticsButton = "Copy Diagnostics";
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
