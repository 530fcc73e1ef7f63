#include "app/settings/PictureTexts.h"

namespace zv {

PictureTexts PictureTexts::of(SystemKind system)
{
    bool const isMac = system == SystemKind::macOS;
    PictureTexts texts;
    texts.picture = markc("of an entry", "Picture");
    texts.choose = isMac ? tr("Symbol…") : tr("Icon…");
    texts.chooseHelp = isMac ? tr("Chooses one of the system’s symbols") : tr("Chooses one of the theme’s icons");
    texts.image = tr("Image…");
    texts.imageHelp = tr("Chooses an image file, which is copied");
    texts.reset = trc("picture of an item", "Default");
    texts.resetHelp = tr("Takes this picture away; the item has its usual one again");
    texts.wellHelp = tr("The item’s picture. An image can be dropped here.");
    texts.gridTitle = isMac ? tr("Choose Symbol") : tr("Choose Icon");
    texts.grid = isMac ? tr("Symbols") : tr("Icons");
    texts.search = isMac ? tr("Search the symbols") : tr("Search the icons");
    texts.nothingFound = isMac ? mark("No symbol has such a name.") : mark("No icon has such a name.");
    texts.loading = mark("Loading…");
    texts.accept = trc("button", "Choose");
    texts.cancel = tr("Cancel");
    return texts;
}

} // namespace zv
