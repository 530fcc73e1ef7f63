#include "app/updates/UpdatePages.h"

#include "app/updates/UpdateChoice.h"
#include "app/updates/UpdateTexts.h"

namespace zv::updatePages {

namespace {

constexpr char const* notDownloadedTitle = "The update could not be downloaded";

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
    page.buttons = { "OK" };
    return page;
}

} // namespace

Offer offer(AppcastItem const& item, std::string const& currentVersion, std::optional<std::string> const& owningPackage)
{
    Offer offer;
    offer.page.title = item.isCritical ? "An important update is available" : "A new version is available";
    offer.page.message = nameOf(item) + " is available. You have " + currentVersion + ".";
    offer.page.notes = plainTextOfNotes(item.releaseNotes);
    offer.page.notesName = updateTexts::notes;
    offer.page.buttons.clear();
    if (owningPackage)
        offer.page.message += " This copy belongs to the package “" + *owningPackage + "”, so your system’s own updates will bring it.";
    else if (!item.downloadAddress.empty())
        add(offer, OfferAnswer::install, "Install");
    if (!item.releasePage.empty())
        add(offer, OfferAnswer::openReleasePage, "Open Release Page");
    add(offer, OfferAnswer::later, "Remind Me Later");
    offer.page.escapeButton = offer.answers.size() - 1;
    if (!item.isCritical)
        add(offer, OfferAnswer::skip, "Skip This Version");
    return offer;
}

UpdatePage checking()
{
    UpdatePage page;
    page.title = "Looking for updates…";
    page.progress = -1;
    page.buttons = { "Cancel" };
    return page;
}

UpdatePage downloading(AppcastItem const& item, double fraction)
{
    UpdatePage page;
    page.title = "Downloading " + nameOf(item) + "…";
    page.progress = fraction;
    page.buttons = { "Cancel" };
    return page;
}

UpdatePage upToDate(std::string const& currentVersion) { return told("You’re up to date", "Zanthe Vell " + currentVersion + " is the newest version."); }

UpdatePage notLookedFor(std::string const& reason) { return told("Updates could not be looked for", "The reason: " + reason + "."); }

UpdatePage withoutAddress() { return told(notDownloadedTitle, "The feed names no usable address."); }

UpdatePage notDownloaded(std::string const& reason) { return told(notDownloadedTitle, "The reason: " + reason + ". Nothing was changed."); }

UpdatePage notOpened(std::string const& fileName, std::string const& reason)
{
    auto page = told("The update could not be opened", "“" + fileName + "” was downloaded, but nothing here installs it: " + reason + ".");
    page.buttons = { "Show in Folder", "OK" };
    page.escapeButton = 1;
    return page;
}

UpdatePage refused(std::string const& reason) { return told("The update was refused", reason + " Nothing was changed."); }

} // namespace zv::updatePages
