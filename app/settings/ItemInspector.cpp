#include "app/settings/ItemInspector.h"

#include "app/model/ItemPicture.h"
#include "app/settings/FolderForm.h"
#include "app/settings/SettingsTexts.h"
#include "base/Translation.h"

namespace zv {

namespace {

std::string kindTitleOf(MenuItem const& item)
{
    if (item.kind == MenuItemKind::fsObject)
        return tr("File, folder or application");
    if (item.kind == MenuItemKind::separator)
        return tr("Separator");
    if (item.kind == MenuItemKind::submenu)
        return tr("Submenu");
    return item.kind.defaultTitle();
}

std::string placeholderFor(MenuItem item)
{
    item.title.reset();
    return item.displayTitle();
}

std::vector<SettingsChoice> depthChoices(std::int64_t current, Preferences const& preferences)
{
    // TRANSLATORS: how many levels of folders open; “General” is the first tab of the settings
    std::vector<SettingsChoice> offered { { tr("As in General (%1)", number(preferences.maximumScanDepth())), depthOfPreference },
        { tr("None: opens the folder"), 0 } };
    for (std::int64_t const levels : { 1, 2, 3, 5, 10 })
        offered.push_back(choiceOfLevels(levels));
    return choicesWith(current, std::move(offered));
}

std::string wordsFor(std::optional<ItemPicture> const& picture)
{
    if (!picture)
        return trc("picture of an item", "Default");
    return picture->kind == ItemPicture::Kind::icon ? picture->name : tr("An image of your own");
}

/// True for kinds whose submenu lists folders, and so has a depth.
bool listsFolders(MenuItemKind const& kind)
{
    return kind == MenuItemKind::fsObject || kind == MenuItemKind::zantheVellItems || kind == MenuItemKind::mountedVolumes || kind == MenuItemKind::recentItems
        || kind == MenuItemKind::recentFolders;
}

} // namespace

std::optional<std::int64_t> depthOfChoice(std::int64_t choice) { return choice == depthOfPreference ? std::nullopt : std::optional(choice); }

InspectorFields inspectorFields(MenuItem const& item, Preferences const& preferences, TargetFacts target)
{
    bool const isSeparator = item.kind == MenuItemKind::separator;
    bool const isGroup = item.kind == MenuItemKind::submenu || !item.children.empty();
    InspectorFields fields;
    fields.kindTitle = kindTitleOf(item);
    fields.hasTitle = !isSeparator;
    fields.title = item.title && !item.title->empty() ? item.displayTitle() : std::string();
    fields.titlePlaceholder = placeholderFor(item);
    fields.chooseTitle = tr(settingsTexts::choose.title);
    fields.hasTarget = item.kind == MenuItemKind::fsObject;
    fields.targetPath = item.location && item.location->path ? *item.location->path : std::string();
    fields.targetIsMissing = fields.hasTarget && target.isMissing;
    fields.hasDepth = !isGroup && listsFolders(item.kind) && (!fields.hasTarget || target.mayBeFolder);
    fields.hasListing = fields.hasDepth && fields.hasTarget;
    fields.listing = summaryOf(folderChoicesOf(item));
    fields.depth = item.scanDepth;
    if (fields.hasDepth)
        fields.depthChoices = depthChoices(item.scanDepth.value_or(depthOfPreference), preferences);
    auto const picture = pictureOf(item);
    fields.hasPicture = !isSeparator;
    fields.hasOwnPicture = picture.has_value();
    fields.picture = wordsFor(picture);
    fields.pictureIcon = picture && picture->kind == ItemPicture::Kind::icon ? picture->name : "";
    fields.canHide = true;
    fields.isHidden = item.isHidden;
    fields.hasShortcut = !isSeparator && !item.kind.isLegacy();
    fields.shortcut = item.keyEquivalent;
    fields.note = item.kind.unavailabilityReason().value_or("");
    if (fields.targetIsMissing)
        fields.note = tr(settingsTexts::missingFile);
    return fields;
}

} // namespace zv
