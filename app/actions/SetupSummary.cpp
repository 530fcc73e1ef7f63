#include "app/actions/SetupSummary.h"

#include "app/menu/DisplayText.h"
#include "base/Translation.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <iterator>

namespace zv {

namespace {

constexpr std::size_t lineLength = 160; // characters of a command's line that are shown of it where lists are short

using Lines = std::vector<std::string>;

void addList(Lines& lines, std::string heading, Lines const& entries, std::size_t most)
{
    if (entries.empty())
        return;
    lines.push_back(std::move(heading));
    auto const named = std::min(entries.size(), most);
    for (std::size_t i = 0; i < named; ++i)
        lines.push_back("  " + entries[i]);
    if (named < entries.size())
        lines.push_back("  " + trn("and %1 more", "and %1 more", entries.size() - named));
}

std::string shortened(std::string const& text, std::size_t most)
{
    auto const shown = displayText(text);
    auto const graphemes = most == allLines ? std::vector<std::string_view>() : firstGraphemes(shown, lineLength + 1);
    if (graphemes.size() <= lineLength)
        return shown;
    return std::string(shown.begin(), shown.begin() + (graphemes[lineLength].data() - shown.data())) + "…";
}

// TRANSLATORS: %1 is the title of something, %2 what it does or where it leads
std::string titled(std::string const& title, std::string const& what) { return tr("%1: %2", quoted(displayText(title)), what); }

Lines ownLines(Setup const& setup, OwnItem::Kind kind, std::size_t most)
{
    Lines lines;
    for (auto const& [id, own] : setup.ownItems) {
        auto const* item = own.kind == kind ? findItem(setup.menu.items, id) : nullptr;
        if (item)
            lines.push_back(titled(item->displayTitle(), shortened(own.text, most)));
    }
    return lines;
}

Lines shown(Lines const& names)
{
    Lines lines;
    std::transform(names.begin(), names.end(), std::back_inserter(lines), [](auto const& name) { return displayText(name); });
    return lines;
}

} // namespace

bool bringsPrograms(Setup const& setup)
{
    return std::any_of(setup.ownItems.begin(), setup.ownItems.end(), [](auto const& each) { return each.second.kind != OwnItem::Kind::link; });
}

Lines contentLines(Setup const& setup, std::size_t most)
{
    Lines lines { trn("A menu of %1 item.", "A menu of %1 items.", setup.menu.itemCount) };
    if (!setup.preferences.empty())
        lines.push_back(trn("%1 preference.", "%1 preferences.", setup.preferences.size()));
    if (!setup.images.empty())
        lines.push_back(trn("%1 picture.", "%1 pictures.", setup.images.size()));
    auto const links = ownLines(setup, OwnItem::Kind::link, most);
    auto const commands = ownLines(setup, OwnItem::Kind::command, most);
    auto const scripts = ownLines(setup, OwnItem::Kind::scriptMenu, most);
    addList(lines, trn("%1 link:", "%1 links:", links.size()), links, most);
    addList(lines, trn("%1 command, which runs here when it is chosen:", "%1 commands, which run here when they are chosen:", commands.size()), commands, most);
    addList(lines, trn("%1 script menu, which runs here when it opens:", "%1 script menus, which run here when they open:", scripts.size()), scripts, most);
    return lines;
}

Lines leftOutLines(Setup const& setup, std::vector<std::string> const& locked, std::size_t most)
{
    Lines lines;
    addList(lines, tr("Locked by an administrator of this computer, and left as it is:"), shown(locked), most);
    addList(lines, tr("Not known to this version, and left out:"), shown(setup.unknown), most);
    return lines;
}

Lines missingLines(std::vector<MissingTarget> const& missing, std::size_t most)
{
    Lines entries;
    for (auto const& [title, path] : missing)
        entries.push_back(titled(title, displayText(path)));
    Lines lines;
    addList(lines, tr("Not on this computer:"), entries, most);
    return lines;
}

} // namespace zv
