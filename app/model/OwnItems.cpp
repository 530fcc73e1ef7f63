#include "app/model/OwnItems.h"

#include "app/model/PlainText.h"
#include "app/model/RecordReader.h"
#include "base/Uuid.h"
#include "platform/text/PropertyListFormat.h"

#include <algorithm>

namespace zv {

namespace {

constexpr std::string_view scriptMenuEnding = ".menu.sh";
constexpr std::string_view scriptEnding = ".sh";
constexpr char const* kinds[] = { "link", "command", "scriptMenu" };

std::string stemOf(Url const& file)
{
    auto const name = file.lastPathComponent();
    return name.substr(0, name.find('.'));
}

std::vector<std::byte> bytesOf(std::string const& text)
{
    auto const* begin = reinterpret_cast<std::byte const*>(text.data());
    return { begin, begin + text.size() };
}

/// A value of an application entry: https://specifications.freedesktop.org/desktop-entry-spec, "Possible value types".
std::string entryValue(std::string const& text)
{
    std::string value;
    for (char const c : withoutControls(text))
        value += c == '\\' ? "\\\\" : std::string(1, c);
    return value;
}

/// An argument of an entry's Exec line (the same, "The Exec key"), before it becomes a value.
std::string execArgument(std::string const& text)
{
    std::string quoted = "\"";
    for (char const c : text) {
        if (c == '"' || c == '`' || c == '$' || c == '\\')
            quoted += '\\';
        quoted += c == '%' ? "%%" : std::string(1, c);
    }
    return quoted + "\"";
}

enum class After { end, shell };

/// A script that runs the line in the user's own shell. A terminal's window stays open behind it.
std::string scriptFor(OwnItem const& item, After after)
{
    std::string script = "#!/bin/sh\n";
    if (!item.folder.empty())
        script += "cd " + quotedForShell(item.folder) + " || exit 1\n";
    auto const line = "\"${SHELL:-/bin/sh}\" -c " + quotedForShell(item.text) + "\n";
    return script + (after == After::shell ? line + "exec \"${SHELL:-/bin/sh}\"\n" : "exec " + line);
}

std::string xmlText(std::string const& text)
{
    std::string escaped;
    for (char const c : text)
        escaped += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : std::string(1, c);
    return escaped;
}

} // namespace

PropertyList ownItemRecord(OwnItem const& item)
{
    PropertyListDictionary record;
    record.append("kind", kinds[static_cast<int>(item.kind)]);
    record.append("title", item.title);
    record.append("text", item.text);
    record.append("folder", item.folder);
    record.append("inTerminal", item.inTerminal);
    return record;
}

std::optional<OwnItem> ownItemOf(PropertyList const& stored)
{
    RecordReader record(stored);
    auto const kind = record.requiredString("kind");
    OwnItem item;
    item.title = record.requiredString("title");
    item.text = record.requiredString("text");
    item.folder = record.requiredString("folder");
    item.inTerminal = record.requiredBoolean("inTerminal");
    auto const known = std::find(std::begin(kinds), std::end(kinds), kind);
    if (!record.ok() || known == std::end(kinds))
        return std::nullopt;
    item.kind = static_cast<OwnItem::Kind>(known - std::begin(kinds));
    return item;
}

std::string quotedForShell(std::string_view text)
{
    std::string quoted = "'";
    for (char const c : text)
        quoted += c == '\'' ? "'\\''" : std::string(1, c);
    return quoted + "'";
}

OwnItems::OwnItems(SystemKind system, Url const& itemsFolder, FileSystem& files)
    : m_system(system)
    , m_folder(folderBeside(itemsFolder))
    , m_files(files)
{
}

Url OwnItems::folderBeside(Url const& itemsFolder) { return itemsFolder.parent().appending("." + itemsFolder.lastPathComponent()); }

bool OwnItems::contains(Url const& file) const { return file.isFile() && file.parent().path() == m_folder.path(); }

bool OwnItems::isScriptMenu(Url const& file) const { return contains(file) && file.lastPathComponent().ends_with(scriptMenuEnding); }

bool OwnItems::isQuietScript(Url const& file) const
{
    auto const name = file.lastPathComponent();
    return contains(file) && name.ends_with(scriptEnding) && !name.ends_with(scriptMenuEnding);
}

std::optional<OwnItem> OwnItems::read(Url const& file) const
{
    if (!contains(file))
        return std::nullopt;
    auto const bytes = m_files.read(definitionOf(stemOf(file)));
    auto const definition = bytes ? readPropertyList(*bytes) : Failure { bytes.error() };
    return definition ? ownItemOf(*definition) : std::nullopt;
}

Result<Url> OwnItems::write(OwnItem const& item, std::optional<Url> const& instead) const
{
    bool const replaces = instead && contains(*instead);
    auto const stem = replaces ? stemOf(*instead) : Uuid::random().toString();
    auto written = writeFiles(item, stem);
    if (!written)
        return written;
    auto const definition = writePropertyList(ownItemRecord(item));
    if (!definition)
        return Failure { definition.error() };
    if (auto const kept = m_files.writePrivately(definitionOf(stem), *definition); !kept)
        return Failure { kept.error() };
    if (replaces && *written != *instead)
        (void)m_files.remove(*instead);
    return written;
}

Result<Url> OwnItems::writeForTerminal(std::string const& line) const
{
    return writeCommand({ .kind = OwnItem::Kind::command, .title = line, .text = line, .inTerminal = true }, "once");
}

Result<Url> OwnItems::writeFiles(OwnItem const& item, std::string const& stem) const
{
    switch (item.kind) {
    case OwnItem::Kind::link:
        return writeLink(item, stem);
    case OwnItem::Kind::command:
        return writeCommand(item, stem);
    case OwnItem::Kind::scriptMenu:
        break;
    }
    return put(stem + std::string(scriptMenuEnding), scriptFor(item, After::end));
}

Result<Url> OwnItems::writeLink(OwnItem const& item, std::string const& stem) const
{
    if (m_system == SystemKind::macOS)
        return put(stem + ".webloc",
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict><key>URL</key><string>" + xmlText(item.text)
                + "</string></dict></plist>\n");
    return put(stem + ".desktop", "[Desktop Entry]\nType=Link\nName=" + entryValue(item.title) + "\nURL=" + entryValue(item.text) + "\nIcon=text-html\n");
}

Result<Url> OwnItems::writeCommand(OwnItem const& item, std::string const& stem) const
{
    auto const script = scriptFor(item, item.inTerminal ? After::shell : After::end);
    if (m_system == SystemKind::macOS)
        return put(stem + (item.inTerminal ? ".command" : std::string(scriptEnding)), script);
    auto const written = put(stem + std::string(scriptEnding), script);
    if (!written)
        return written;
    auto const exec = entryValue("/bin/sh " + execArgument(written->path()));
    return put(stem + ".desktop",
        "[Desktop Entry]\nType=Application\nName=" + entryValue(item.title) + "\nExec=" + exec + "\nTerminal=" + (item.inTerminal ? "true" : "false")
            + "\nIcon=utilities-terminal\n");
}

Result<Url> OwnItems::put(std::string const& name, std::string const& text) const
{
    auto const file = m_folder.appending(name);
    if (auto const written = m_files.writePrivately(file, bytesOf(text)); !written)
        return Failure { written.error() };
    if (auto const made = m_files.makeStartable(file); !made)
        return Failure { made.error() };
    return file;
}

} // namespace zv
