#include "app/actions/ItemsFolder.h"

#include "app/menu/FileEntry.h"
#include "base/Translation.h"
#include "platform/text/Text.h"

#include <algorithm>

namespace zv {

namespace {

constexpr int highestNumber = 1000;

/// "Report.pdf" → "Report 2.pdf"; number 1 keeps the name.
std::string numberedName(std::string_view name, int number)
{
    if (number == 1)
        return std::string(name);
    auto const extension = pathExtension(name);
    auto const numbered = std::string(deletingPathExtension(name)) + " " + std::to_string(number);
    return extension.empty() ? numbered : numbered + "." + std::string(extension);
}

bool isUsableAsFileName(std::string_view name) { return !name.empty() && name != "." && name != ".." && name != "/"; }

} // namespace

std::string ItemsFolder::Failure::description() const { return tr("The folder already holds a thousand items called %1.", quoted(noAvailableName)); }

ItemsFolder::Outcome ItemsFolder::add(std::vector<Url> const& urls) const
{
    Outcome outcome;
    if (auto const made = ensureExists(); !made) {
        outcome.folderError = made.error();
        return outcome;
    }
    for (auto const& url : urls) {
        auto const name = fileNameFor(url);
        if (auto const added = addOne(url, name); added)
            outcome.added.push_back(url);
        else
            outcome.problems.push_back({ withValidUtf8(name), added.error() });
    }
    return outcome;
}

std::string ItemsFolder::fileNameFor(Url const& url) const
{
    auto name = url.lastPathComponent();
    if (!isUsableAsFileName(name))
        name = volumeTitle(url, m_files.volumeName(url).value_or(""));
    if (!isUsableAsFileName(name))
        name = m_files.localizedName(url);
    if (!isUsableAsFileName(name))
        name = "Untitled";
    // Volume labels may hold a slash, which file names cannot.
    std::replace(name.begin(), name.end(), '/', ':');
    return name;
}

/// Tries the next number when the name is taken, also if that happens after the look.
Result<void> ItemsFolder::addOne(Url const& url, std::string const& name) const
{
    for (int number = 1; number <= highestNumber; ++number) {
        auto const place = m_url.appending(numberedName(name, number));
        if (m_files.isTaken(place))
            continue;
        auto const created = m_aliases.createAlias(url, place);
        if (created)
            return {};
        if (!created.error().isNameTaken)
            return zv::Failure { created.error().reason };
    }
    return zv::Failure { Failure { withValidUtf8(name) }.description() };
}

} // namespace zv
