#include "platform/linux/entries/ApplicationEntry.h"

#include "platform/linux/posix/GObjects.h"
#include "platform/linux/posix/WholeFiles.h"
#include "platform/text/Text.h"

#include <algorithm>

namespace zv {

namespace {

constexpr std::size_t largestEntry = std::size_t { 1 } << 20;

} // namespace

bool ApplicationEntry::hasCategory(std::string_view category) const { return std::find(categories.begin(), categories.end(), category) != categories.end(); }

std::optional<std::string> ApplicationEntry::program() const { return programOfCommandLine(exec); }

std::string ApplicationEntry::missingProgram() const
{
    if (!tryExec.empty() && !isInstalled(tryExec))
        return tryExec;
    if (isDBusActivatable)
        return {};
    auto const started = program();
    return started && !isInstalled(*started) ? *started : std::string();
}

std::optional<ApplicationEntry> readApplicationEntry(std::string const& path, std::string const& id, DesktopAudience const& audience)
{
    auto const text = readTextFile(path, largestEntry);
    DesktopEntry const file(text ? *text : std::string_view());
    auto const name = file.translated("Name", audience.languages);
    if (file.text("Type") != "Application" || name.empty() || name != withValidUtf8(name))
        return std::nullopt;
    return ApplicationEntry { id, path, name, file.translated("Icon", audience.languages), file.text("Exec"), file.text("TryExec"), file.text("StartupWMClass"),
        file.list("Categories"), file.isMeantFor(audience.desktops), file.flag("NoDisplay"), file.flag("Hidden"), file.flag("DBusActivatable") };
}

std::optional<std::string> programOfCommandLine(std::string const& commandLine)
{
    gint count = 0;
    gchar** arguments = nullptr;
    if (!g_shell_parse_argv(commandLine.c_str(), &count, &arguments, nullptr))
        return std::nullopt;
    GObjectRef<gchar*> const owned(arguments);
    std::vector<std::string> const words(arguments, arguments + count);
    auto const isPreamble = [](std::string const& word) { return word == "env" || word == "/usr/bin/env" || word.find('=') != std::string::npos; };
    auto const program = std::find_if_not(words.begin(), words.end(), isPreamble);
    return program == words.end() ? std::nullopt : std::optional(*program);
}

bool isInstalled(std::string const& program) { return GString8(g_find_program_in_path(program.c_str())) != nullptr; }

} // namespace zv
