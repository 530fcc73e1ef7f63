#include "app/menu/FileEntry.h"

#include "app/menu/DisplayText.h"
#include "app/model/FinderPopName.h"
#include "base/Translation.h"

#include <utility>

namespace zv {

namespace {

/// True for the ")" of a prefix or the "-*" of a mark: most names have neither, and need no
/// parsing character by character.
bool maySayMore(std::string_view name) { return name.find(')') != std::string_view::npos || name.find("-*") != std::string_view::npos; }

std::string titleOf(std::string_view shownName) { return maySayMore(shownName) ? displayText(FinderPopName(shownName).title) : displayText(shownName); }

/// Sets the title, and the separator mark and the hotkey that the name carries.
void readName(NamedFile const& file, DynamicEntry& entry)
{
    bool const showsName = file.localizedName.empty();
    if (!maySayMore(file.name)) {
        entry.title = showsName ? displayText(file.name) : titleOf(file.localizedName);
        return;
    }
    FinderPopName said(file.name);
    entry.isSeparator = said.isSeparator;
    entry.hotkey = std::move(said.hotkey);
    if (!entry.isSeparator)
        entry.title = showsName ? displayText(said.title) : titleOf(file.localizedName);
}

} // namespace

std::string sortNameOf(NamedFile const& file)
{
    if (file.localizedName.empty())
        return std::string(file.name);
    auto const prefix = maySayMore(file.name) ? FinderPopName(file.name).orderingPrefix : std::nullopt;
    return prefix.value_or("").append(file.localizedName);
}

std::string titleOf(NamedFile const& file)
{
    bool const isSeparator = maySayMore(file.name) && FinderPopName(file.name).isSeparator;
    return isSeparator ? std::string() : titleOf(file.localizedName.empty() ? file.name : file.localizedName);
}

DynamicEntry fileEntry(Url url, NamedFile const& file)
{
    auto id = url.toString();
    auto entry = listedEntry(std::move(url), file);
    entry.id = std::move(id);
    entry.sortName = sortNameOf(file);
    return entry;
}

DynamicEntry listedEntry(Url url, NamedFile const& file)
{
    DynamicEntry entry;
    readName(file, entry);
    entry.fileURL = url;
    entry.url = std::move(url);
    entry.isDirectory = file.traits.isDirectory;
    entry.isPackage = file.traits.isPackage;
    entry.unavailabilityReason = reasonFor(file.traits.fault);
    return entry;
}

std::string volumeTitle(Url const& root, std::string const& label)
{
    if (!label.empty())
        return label;
    return root.path() == "/" ? tr("File System") : root.lastPathComponent();
}

std::optional<std::string> reasonFor(FileFault fault)
{
    switch (fault) {
    case FileFault::none:
        break;
    case FileFault::leadsNowhere:
        return tr("This link leads nowhere: its target was moved or deleted, or the volume that holds it is away.");
    case FileFault::programMissing:
        return tr("The program that this entry starts is not installed.");
    }
    return std::nullopt;
}

DynamicEntry fileEntry(Url const& url, FileSystem const& files)
{
    auto const name = url.lastPathComponent();
    auto const shown = files.localizedName(url);
    return fileEntry(url, { name, shown == name ? std::string_view() : shown, files.traits(url).value_or(FileTraits {}) });
}

} // namespace zv
