#include "platform/linux/entries/ApplicationEntry.h"

#include "platform/linux/posix/SmallFiles.h"

#include <gio/gio.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace zv {

namespace {

constexpr std::size_t largestEntry = std::size_t { 1 } << 20;

struct Freed {
    void operator()(gchar* text) const { g_free(text); }
    void operator()(gchar** list) const { g_strfreev(list); }
    void operator()(GKeyFile* file) const { g_key_file_unref(file); }
};

/// The "Desktop Entry" group of a file.
class EntryGroup {
public:
    EntryGroup(std::string const& text, std::string language)
        : m_file(g_key_file_new())
        , m_language(std::move(language))
    {
        m_isReadable = g_key_file_load_from_data(m_file.get(), text.data(), text.size(), G_KEY_FILE_KEEP_TRANSLATIONS, nullptr) != FALSE;
    }
    [[nodiscard]] bool isReadable() const { return m_isReadable; }
    [[nodiscard]] std::string text(char const* key) const
    {
        std::unique_ptr<gchar, Freed> const value(g_key_file_get_string(m_file.get(), group, key, nullptr));
        return value ? value.get() : "";
    }
    [[nodiscard]] std::string translated(char const* key) const
    {
        auto const* language = m_language.empty() ? nullptr : m_language.c_str();
        std::unique_ptr<gchar, Freed> const value(g_key_file_get_locale_string(m_file.get(), group, key, language, nullptr));
        return value ? value.get() : text(key);
    }
    [[nodiscard]] bool flag(char const* key) const { return g_key_file_get_boolean(m_file.get(), group, key, nullptr) != FALSE; }
    [[nodiscard]] std::vector<std::string> list(char const* key) const
    {
        gsize count = 0;
        std::unique_ptr<gchar*, Freed> const values(g_key_file_get_string_list(m_file.get(), group, key, &count, nullptr));
        return values ? std::vector<std::string>(values.get(), values.get() + count) : std::vector<std::string> {};
    }

private:
    static constexpr char const* group = G_KEY_FILE_DESKTOP_GROUP;
    std::unique_ptr<GKeyFile, Freed> m_file;
    std::string m_language;
    bool m_isReadable = false;
};

bool intersect(std::vector<std::string> const& a, std::vector<std::string> const& b)
{
    return std::find_first_of(a.begin(), a.end(), b.begin(), b.end()) != a.end();
}

} // namespace

std::vector<std::string> desktopsNamed(std::string_view colonSeparated)
{
    std::vector<std::string> names;
    while (!colonSeparated.empty()) {
        auto const end = std::min(colonSeparated.find(':'), colonSeparated.size());
        if (end > 0)
            names.emplace_back(colonSeparated.substr(0, end));
        colonSeparated.remove_prefix(std::min(end + 1, colonSeparated.size()));
    }
    return names;
}

std::vector<std::string> currentDesktops()
{
    auto const* names = std::getenv("XDG_CURRENT_DESKTOP");
    return desktopsNamed(names ? names : "");
}

bool ApplicationEntry::isMeantFor(std::vector<std::string> const& desktops) const
{
    if (!onlyShowIn.empty() && !intersect(onlyShowIn, desktops))
        return false;
    return !intersect(notShowIn, desktops);
}

bool ApplicationEntry::isListed(std::vector<std::string> const& desktops) const { return !isHidden && !noDisplay && isMeantFor(desktops); }

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

std::optional<ApplicationEntry> readApplicationEntry(std::string const& path, std::string const& id, std::string const& language)
{
    auto const text = readSmallFile(path, largestEntry);
    if (!text)
        return std::nullopt;
    EntryGroup const group(*text, language);
    if (!group.isReadable() || group.text("Type") != "Application")
        return std::nullopt;

    ApplicationEntry entry { id, path, group.translated("Name"), group.translated("Icon"), group.text("Exec"), group.text("TryExec"),
        group.text("StartupWMClass"), group.list("Categories"), group.list("OnlyShowIn"), group.list("NotShowIn"), group.flag("NoDisplay"),
        group.flag("Hidden"), group.flag("DBusActivatable") };
    if (entry.name.empty())
        return std::nullopt;
    return entry;
}

std::optional<std::string> programOfCommandLine(std::string const& commandLine)
{
    gint count = 0;
    gchar** arguments = nullptr;
    if (!g_shell_parse_argv(commandLine.c_str(), &count, &arguments, nullptr))
        return std::nullopt;
    std::unique_ptr<gchar*, Freed> const owned(arguments);
    std::vector<std::string> const words(arguments, arguments + count);
    auto const isPreamble = [](std::string const& word) { return word == "env" || word == "/usr/bin/env" || word.find('=') != std::string::npos; };
    auto const program = std::find_if_not(words.begin(), words.end(), isPreamble);
    return program == words.end() ? std::nullopt : std::optional(*program);
}

bool isInstalled(std::string const& program) { return std::unique_ptr<gchar, Freed>(g_find_program_in_path(program.c_str())) != nullptr; }

} // namespace zv
