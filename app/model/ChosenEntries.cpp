#include "app/model/ChosenEntries.h"

#include "base/Log.h"
#include "base/MainThread.h"
#include "platform/text/PropertyListFormat.h"

#include <algorithm>
#include <utility>

namespace zv {

namespace {

std::vector<std::string> readIdentities(FileSystem const& files, Url const& file)
{
    std::vector<std::string> identities;
    auto const bytes = files.read(file);
    auto const stored = bytes ? readPropertyList(*bytes) : Failure { bytes.error() };
    auto const* array = stored ? stored->array() : nullptr;
    if (!array)
        return identities;
    for (auto const& each : *array) {
        if (auto const* identity = each.string(); identity && identities.size() < ChosenEntries::capacity)
            identities.push_back(*identity);
    }
    return identities;
}

/// Removes the file for an empty list.
Result<void> write(FileSystem& files, Url const& file, std::vector<std::string> const& identities)
{
    if (identities.empty())
        return files.exists(file) ? files.remove(file) : Result<void>();
    auto const bytes = writePropertyList(PropertyListArray(identities.begin(), identities.end()));
    return bytes ? files.writePrivately(file, *bytes) : Failure { bytes.error() };
}

} // namespace

ChosenAges::ChosenAges(std::vector<std::string> const& identities)
{
    for (auto const& identity : identities) {
        m_ages.emplace(identity, m_ages.size());
        m_folders.insert(identity.substr(0, identity.rfind('/')));
    }
}

std::size_t ChosenAges::ageOf(std::string const& identity) const
{
    auto const found = m_ages.find(identity);
    return found == m_ages.end() ? never : found->second;
}

bool ChosenAges::hasSomethingIn(Url const& folder) const { return m_folders.contains(std::string(withoutTrailingSlashes(folder.toString()))); }

ChosenEntries::ChosenEntries(Services services, Url file)
    : m_services(std::move(services))
    , m_file(std::move(file))
{
    follow();
}

/// Forgets all as soon as nothing is to be remembered.
void ChosenEntries::follow()
{
    assertMainThread();
    auto again = m_lifetime.guard([this] { m_services.tasks.runOnMain(m_lifetime.guard([this] { follow(); })); });
    m_tracking = withObservationTracking([this] { (void)m_services.preferences.remembersChoices(); }, again);
    if (m_services.preferences.remembersChoices())
        return;
    m_identities.clear();
    m_isLoaded = true;
    save();
}

void ChosenEntries::add(std::string identity)
{
    assertMainThread();
    if (identity.empty() || !m_services.preferences.remembersChoices())
        return;
    load();
    std::erase(m_identities, identity);
    m_identities.insert(m_identities.begin(), std::move(identity));
    if (m_identities.size() > capacity)
        m_identities.pop_back();
    save();
}

std::shared_ptr<ChosenAges const> ChosenEntries::ages()
{
    assertMainThread();
    if (m_services.preferences.remembersChoices())
        load();
    return std::make_shared<ChosenAges const>(m_services.preferences.remembersChoices() ? m_identities : std::vector<std::string>());
}

void ChosenEntries::load()
{
    if (!std::exchange(m_isLoaded, true))
        m_identities = readIdentities(*m_services.files, m_file);
}

/// Writes in the background, one save at a time, so that what was chosen opens without a wait for the disk.
void ChosenEntries::save()
{
    m_isChanged = true;
    if (std::exchange(m_isSaving, true))
        return;
    m_isChanged = false;
    auto saved = m_lifetime.guard([this](Result<void> const& written) {
        m_isSaving = false;
        if (!written)
            logLine("could not save " + m_file.path() + ": " + written.error());
        if (m_isChanged)
            save();
    });
    m_services.tasks.inBackground(
        TaskPriority::utility, [files = m_services.files, file = m_file, identities = m_identities] { return write(*files, file, identities); }, saved);
}

} // namespace zv
