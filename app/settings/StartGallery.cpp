#include "app/settings/StartGallery.h"

namespace zv {

StartGallery::Texts const& StartGallery::texts()
{
    static constexpr Texts texts {
        .open = mark("Start from…"),
        .openHelp = mark("Shows other menus to start from"),
        .window = mark("Menus to Start From"),
        .list = mark("Menus to Start From"),
        .preview = mark("What is in it"),
        .take = mark("Use This Menu"),
        .cancel = mark("Cancel"),
    };
    return texts;
}

std::string StartGallery::note() const
{
    if (!canTake())
        return tr("Locked by an administrator of this computer.");
    if (m_services.store.isNew())
        return tr("Every entry can be changed later, in the settings. Without a choice you have the first of these menus.");
    return tr("Your menu is replaced. You can undo this, and your menu is kept among the backups.");
}

void StartGallery::take(StartMenu const& menu)
{
    auto items = menu.items;
    for (auto& item : items)
        item = menuTree::withFreshIds(std::move(item));
    m_services.editor.replaceMenu(std::move(items), tr("Start From %1", quoted(menu.title)));
}

} // namespace zv
