#include "app/settings/SettingsTexts.h"

#include "platform/text/Text.h"

namespace zv::settingsTexts {

std::string undo(std::string const& edit)
{
    if (edit.empty())
        return tr("Undo");
    // TRANSLATORS: %1 is an edit that can be undone: “Move”, “Add Separator”
    return tr("Undo %1", edit);
}

std::string redo(std::string const& edit)
{
    if (edit.empty())
        return tr("Redo");
    // TRANSLATORS: %1 is an edit that can be undone: “Move”, “Add Separator”
    return tr("Redo %1", edit);
}

std::string selected(std::size_t count) { return count == 0 ? tr("No item selected") : trn("%1 item selected", "%1 items selected", count); }

std::string withValue(Text const& label, std::string const& value) { return tr("%1: %2", tr(label), value); }

std::string filesNotAdded(std::size_t count) { return trn("One file could not be added.", "%1 files could not be added.", count); }

std::string doesNotExist(std::string const& path) { return tr("%1 does not exist.", path); }

std::string asSentence(std::string const& reason)
{
    auto const first = firstGraphemes(reason, 1);
    return first.empty() ? reason : upperCased(first.front()) + reason.substr(first.front().size());
}

} // namespace zv::settingsTexts
