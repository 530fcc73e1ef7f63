#include "app/settings/PictureChooser.h"

#include "app/settings/SearchWords.h"
#include "app/settings/SettingsTexts.h"
#include "base/Translation.h"
#include "platform/text/PropertyListFormat.h"
#include "platform/text/Text.h"

#include <algorithm>

namespace zv {

namespace {

constexpr int namesProperty = 0;

/// The names that no backup points at; none where a backup cannot be read.
std::set<std::string> unusedIn(std::vector<Url> const& backups, std::set<std::string> names, FileSystem const& files)
{
    for (auto const& backup : backups) {
        auto const bytes = files.read(backup);
        auto const stored = bytes ? readPropertyList(*bytes) : Failure { bytes.error() };
        if (!stored)
            return {};
        eraseImagesIn(*stored, names);
    }
    return names;
}

} // namespace

PictureChooser::PictureChooser(Services services)
    : m_services(services)
    , m_texts(PictureTexts::of(m_services.system.kind))
    , m_images(m_services.system.places.itemsFolder, *m_services.system.files.disk)
{
}

std::vector<std::string const*> PictureChooser::names(std::string_view search)
{
    m_registrar.access(namesProperty);
    if (!std::exchange(m_isAsked, true))
        listNames();
    SearchWords const words(search);
    std::vector<std::string const*> found;
    for (std::size_t i = 0; i < m_names.size(); ++i) {
        if (words.areIn(m_folded[i]))
            found.push_back(&m_names[i]);
    }
    return found;
}

void PictureChooser::listNames()
{
    m_services.surface.windows.pictures.listNames(m_lifetime.guard([this](std::vector<std::string> names) {
        std::sort(names.begin(), names.end());
        m_names = std::move(names);
        m_folded.clear();
        std::transform(m_names.begin(), m_names.end(), std::back_inserter(m_folded), [](auto const& name) { return foldedForSearch(spoken(name)); });
        m_isKnown = true;
        m_registrar.changed(namesProperty);
    }));
}

std::string PictureChooser::spoken(std::string name)
{
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '-' || c == '_' || c == '.'; }, ' ');
    return name;
}

void PictureChooser::takeImage(Uuid const& id, Url const& file)
{
    m_services.surface.windows.pictures.shrink(file, m_lifetime.guard([this, id, file](std::optional<PictureSource::Png> const& png) {
        if (png)
            add(id, file, *png);
        else
            tell(file, tr("It is no image that can be shown."));
    }));
}

void PictureChooser::add(Uuid const& id, Url const& file, PictureSource::Png const& png)
{
    if (auto const image = m_images.add(png))
        m_services.editor.setPicture(id, *image);
    else
        tell(file, settingsTexts::asSentence(image.error()));
}

void PictureChooser::tell(Url const& file, std::string const& reason)
{
    Alert alert;
    alert.message = tr("%1 cannot be the item’s picture.", quoted(file.lastPathComponent()));
    alert.informativeText = reason;
    m_services.surface.windows.settingsAlerts.run(alert);
}

void PictureChooser::chooseImage(Uuid const& id)
{
    Uuid const edited = id; // the caller's may change while the panel is open
    auto const chosen
        = m_services.surface.windows.filePanels.chooseToOpen({ tr("Choose Image"), FilePanelKind::image, tr("Images"), tr(settingsTexts::allFiles) });
    if (!chosen.empty())
        takeImage(edited, chosen.front());
}

void PictureChooser::removeUnusedImages(MenuStore const& store, std::vector<Url> backups)
{
    auto names = store.loadFailure() ? std::set<std::string>() : m_images.names();
    eraseImagesOf(store.items(), names);
    if (names.empty())
        return;
    auto const look = [backups = std::move(backups), names = std::move(names), disk = m_services.system.files.disk] { return unusedIn(backups, names, *disk); };
    m_services.system.time.tasks.inBackground(
        TaskPriority::utility, look, m_lifetime.guard([this](std::set<std::string> const& unused) { m_images.remove(unused); }));
}

} // namespace zv
