#include "platform/linux/apps/WindowApplications.h"

#include "platform/text/Text.h"

#include <array>
#include <cctype>
#include <climits>
#include <unistd.h>

namespace zv {

namespace {

constexpr char const* ownEntry = "org.zanthevell.ZantheVell.desktop";

ApplicationEntry const* entryOf(ClientWindow const& window, ApplicationIndex const& index)
{
    if (auto const* entry = window.gtkApplicationId.empty() ? nullptr : index.find(window.gtkApplicationId))
        return entry;
    for (auto const* name : { &window.windowClass, &window.windowInstance }) {
        if (auto const* entry = index.findByWindowClass(*name))
            return entry;
    }
    return window.program.empty() ? nullptr : index.findByProgram(window.program);
}

RunningApplication applicationOf(ApplicationEntry const& entry) { return { entry.id, entry.name, Url::fromPath(entry.path) }; }

std::string firstNotEmpty(std::initializer_list<std::string_view> texts)
{
    for (auto const text : texts) {
        if (!text.empty())
            return withValidUtf8(text);
    }
    return {};
}

std::string unescapedUnitName(std::string_view name)
{
    std::string plain;
    for (std::size_t i = 0; i < name.size(); ++i) {
        auto const digits = name.substr(i).starts_with("\\x") ? name.substr(i + 2, 2) : std::string_view();
        bool const isEscape
            = digits.size() == 2 && std::isxdigit(static_cast<unsigned char>(digits[0])) && std::isxdigit(static_cast<unsigned char>(digits[1]));
        plain += isEscape ? static_cast<char>(std::stoi(std::string(digits), nullptr, 16)) : name[i];
        i += isEscape ? 3 : 0;
    }
    return plain;
}

} // namespace

RunningApplication applicationOf(ClientWindow const& window, ApplicationIndex const& index)
{
    if (auto const* entry = entryOf(window, index))
        return applicationOf(*entry);
    auto const windowId = std::to_string(window.window);
    RunningApplication application;
    auto const& given = window.windowClass.empty() ? window.windowInstance : window.windowClass;
    application.id = given.empty() ? "window:" + windowId : "class:" + given;
    application.name = firstNotEmpty({ given, window.title, lastPathComponent(window.program), windowId });
    if (!window.program.empty())
        application.url = Url::fromPath(window.program);
    return application;
}

std::optional<std::string> applicationIdOfUnit(std::string_view unitName)
{
    constexpr std::string_view prefix = "app-", service = ".service", scope = ".scope";
    if (!unitName.starts_with(prefix))
        return std::nullopt;
    auto name = unitName.substr(prefix.size());
    if (name.ends_with(service))
        name = name.substr(0, std::min(name.size() - service.size(), name.find('@')));
    else if (name.ends_with(scope))
        name = name.substr(0, name.substr(0, name.size() - scope.size()).rfind('-'));
    else
        return std::nullopt;
    // The unit's name is launcher, then id; a dash within either is escaped.
    auto const id = unescapedUnitName(name.substr(name.rfind('-') + 1));
    return id.empty() || id.ends_with(scope) ? std::nullopt : std::optional(id);
}

std::vector<RunningApplication> applicationsOfUnits(std::vector<std::string> const& unitNames, ApplicationIndex const& index)
{
    std::vector<RunningApplication> applications;
    for (auto const& unit : unitNames) {
        auto const id = applicationIdOfUnit(unit);
        auto const* entry = id ? index.find(*id) : nullptr;
        if (entry && entry->isListed() && entry->id != ownEntry)
            applications.push_back(applicationOf(*entry));
    }
    return applications;
}

std::string programOfProcess(std::uint32_t pid)
{
    if (pid == 0)
        return {};
    std::array<char, PATH_MAX> target {};
    auto const length = readlink(("/proc/" + std::to_string(pid) + "/exe").c_str(), target.data(), target.size());
    return length <= 0 ? std::string() : std::string(target.data(), static_cast<std::size_t>(length));
}

} // namespace zv
