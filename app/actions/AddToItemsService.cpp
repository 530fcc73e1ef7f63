#include "app/actions/AddToItemsService.h"

#include "base/MainThread.h"
#include "platform/text/Text.h"

#include <utility>

namespace zv {

namespace {

std::string problemLines(std::vector<ItemsFolder::Problem> const& problems)
{
    std::string text;
    for (auto const& problem : problems)
        // TRANSLATORS: a file’s name in quotation marks, and why it could not be added
        text += (text.empty() ? "" : "\n") + tr("%1 — %2", quoted(problem.name), problem.reason);
    return text;
}

std::string problemMessage(ItemsFolder::Outcome const& outcome)
{
    auto const failed = outcome.problems.size();
    auto const sent = failed + outcome.added.size();
    if (sent == 1)
        return tr("%1 could not be added to Zanthe Vell Items.", quoted(outcome.problems.front().name));
    return tr("%1 of %2 items could not be added to Zanthe Vell Items.", number(failed), number(sent));
}

} // namespace

std::optional<Alert> alertFor(ItemsFolder::Outcome const& outcome, Url const& folder)
{
    if (outcome.folderError) {
        return Alert { AlertStyle::warning, tr("The Zanthe Vell Items folder could not be created."),
            withValidUtf8(folder.path()) + "\n\n" + *outcome.folderError };
    }
    if (outcome.problems.empty())
        return std::nullopt;
    return Alert { AlertStyle::warning, problemMessage(outcome), problemLines(outcome.problems) };
}

Result<void> AddToItemsService::addToZantheVellItems(std::vector<Url> urls)
{
    assertMainThread();
    std::erase_if(urls, [](Url const& url) { return !url.isFile(); });
    if (urls.empty())
        return Failure { noFilesText() };
    m_services.tasks.inBackground(
        TaskPriority::user, [folder = m_folder, urls = std::move(urls)] { return folder.add(urls); },
        m_lifetime.guard([this](ItemsFolder::Outcome const& outcome) { report(outcome); }));
    return {};
}

void AddToItemsService::report(ItemsFolder::Outcome const& outcome)
{
    if (onAdded)
        onAdded(outcome);
    auto const alert = alertFor(outcome, m_folder.url());
    if (!alert)
        return;
    m_services.application.activate();
    m_services.alerts.run(*alert);
}

} // namespace zv
