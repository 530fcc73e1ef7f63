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

std::string titleOf(std::string_view shownName) { return displayText(maySayMore(shownName) ? FinderPopName(shownName).title : shownName); }

/// Sets the separator mark and the hotkey that the name carries.
void readName(std::string_view name, DynamicEntry& entry)
{
    if (!maySayMore(name))
        return;
    FinderPopName said(name);
    entry.isSeparator = said.isSeparator;
    entry.hotkey = std::move(said.hotkey);
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
    DynamicEntry entry;
    readName(file.name, entry);
    if (!entry.isSeparator)
        entry.title = titleOf(file.localizedName.empty() ? file.name : file.localizedName);
    entry.sortName = sortNameOf(file);
    entry.id = url.toString();
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
