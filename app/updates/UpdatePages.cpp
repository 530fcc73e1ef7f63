#include "app/updates/UpdatePages.h"

#include "app/updates/UpdateChoice.h"
#include "app/updates/UpdateTexts.h"
#include "base/Translation.h"

namespace zv::updatePages {

namespace {

constexpr Sentence notDownloadedTitle = mark("The update could not be downloaded");

std::string nameOf(AppcastItem const& item) { return "Zanthe Vell " + (item.displayVersion.empty() ? item.version : item.displayVersion); }

void add(Offer& offer, OfferAnswer answer, std::string title)
{
    offer.answers.push_back(answer);
    offer.page.buttons.push_back(std::move(title));
}

UpdatePage told(std::string const& title, std::string const& message)
{
    UpdatePage page;
    page.title = title;
    page.message = message;
    page.buttons = { tr("OK") };
    return page;
}

} // namespace

Offer offer(AppcastItem const& item, std::string const& currentVersion, std::optional<std::string> const& owningPackage)
{
    Offer offer;
    offer.page.title = item.isCritical ? tr("An important update is available") : tr("A new version is available");
    offer.page.message = tr("%1 is available. You have %2.", nameOf(item), currentVersion);
    offer.page.notes = plainTextOfNotes(item.releaseNotes);
    offer.page.notesName = tr(updateTexts::notes);
    offer.page.buttons.clear();
    if (owningPackage)
        offer.page.message
            = inSequence(offer.page.message, tr("This copy belongs to the package %1, so your system’s own updates will bring it.", quoted(*owningPackage)));
    else if (!item.downloadAddress.empty())
        add(offer, OfferAnswer::install, trc("button", "Install"));
    if (!item.releasePage.empty())
        add(offer, OfferAnswer::openReleasePage, tr("Open Release Page"));
    add(offer, OfferAnswer::later, tr("Remind Me Later"));
    offer.page.escapeButton = offer.answers.size() - 1;
    if (!item.isCritical)
        add(offer, OfferAnswer::skip, tr("Skip This Version"));
    return offer;
}

UpdatePage checking()
{
    UpdatePage page;
    page.title = tr("Looking for updates…");
    page.progress = -1;
    page.buttons = { tr("Cancel") };
    return page;
}

UpdatePage downloading(AppcastItem const& item, double fraction)
{
    UpdatePage page;
    page.title = tr("Downloading %1…", nameOf(item));
    page.progress = fraction;
    page.buttons = { tr("Cancel") };
    return page;
}

UpdatePage upToDate(std::string const& currentVersion)
{
    return told(tr("You’re up to date"), tr("%1 is the newest version.", "Zanthe Vell " + currentVersion));
}

UpdatePage notLookedFor(std::string const& reason) { return told(tr("Updates could not be looked for"), tr("The reason: %1.", reason)); }

UpdatePage withoutAddress() { return told(tr(notDownloadedTitle), tr("The feed names no usable address.")); }

UpdatePage notDownloaded(std::string const& reason) { return told(tr(notDownloadedTitle), tr("The reason: %1. Nothing was changed.", reason)); }

UpdatePage notOpened(std::string const& fileName, std::string const& reason)
{
    auto page = told(tr("The update could not be opened"), tr("%1 was downloaded, but nothing here installs it: %2.", quoted(fileName), reason));
    page.buttons = { tr("Show in Folder"), tr("OK") };
    page.escapeButton = 1;
    return page;
}

UpdatePage refused(std::string const& reason) { return told(tr("The update was refused"), inSequence(reason, tr("Nothing was changed."))); }

} // namespace zv::updatePages
