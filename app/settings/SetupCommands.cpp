#include "app/settings/SetupCommands.h"

#include "app/actions/SetupSummary.h"
#include "app/settings/SettingsTexts.h"
#include "base/Translation.h"

#include <utility>

namespace zv {

namespace {

using Lines = std::vector<std::string>;

std::string joined(std::initializer_list<Lines> parts)
{
    std::string text;
    for (auto const& lines : parts) {
        for (auto const& line : lines)
            text += line + "\n";
    }
    return text;
}

} // namespace

SetupCommands::SetupCommands(Services services, SetupTransfer::Services transfer)
    : m_services(std::move(services))
    , m_transfer(std::move(transfer))
{
}

void SetupCommands::exportAll()
{
    auto const file = m_services.panels.chooseToSave(tr("Export All"), tr("Everything of Zanthe Vell") + ".plist");
    if (!file)
        return;
    auto const document = setupDocument(m_transfer.collect(m_services.editor.items()));
    auto const exported = document ? m_services.files.write(*file, *document) : Failure { document.error() };
    if (!exported)
        tell(tr("All could not be exported to %1.", quoted(file->lastPathComponent())), exported.error());
}

bool SetupCommands::imports(Url const& file)
{
    auto const bytes = m_services.files.read(file);
    if (!bytes || !isSetup(*bytes))
        return false;
    auto read = readSetup(*bytes, m_services.locations);
    if (!read) {
        tell(tr("%1 could not be imported. Nothing was changed.", quoted(file.lastPathComponent())), read.error().description());
        return true;
    }
    auto setup = m_transfer.movedHere(std::move(read).value());
    if (confirms(file, setup))
        take(std::move(setup));
    return true;
}

bool SetupCommands::confirms(Url const& file, Setup const& setup)
{
    Lines advice;
    bool const isRisky = bringsPrograms(setup);
    if (isRisky)
        advice.push_back(tr("Take commands from nobody but those whom you trust: they may do whatever you may do."));
    advice.push_back(tr("Your menu and your preferences are replaced. What you have now is kept among the backups."));
    Alert question;
    question.message = tr("Import all that is in %1?", quoted(file.lastPathComponent()));
    question.informativeText = joined(
        { contentLines(setup, fewLines), leftOutLines(setup, m_transfer.locked(setup), fewLines), missingLines(m_transfer.missing(setup), fewLines), advice });
    auto const import = trc("button", "Import");
    question.buttons = isRisky ? std::vector { tr("Cancel"), import } : std::vector { import, tr("Cancel") }; // Return alone lets no program in
    question.escapeButton = isRisky ? 0 : 1;
    return m_services.alerts.run(question) != question.escapeButton;
}

void SetupCommands::take(Setup setup)
{
    auto const kept = m_transfer.keep(m_services.editor.items(), m_services.backupsFolder, m_services.clock.now());
    auto const written = kept ? m_transfer.writeFiles(setup) : Failure { kept.error() };
    auto const stored = written ? m_transfer.storePreferences(setup) : written;
    if (!stored)
        return tell(tr("The import failed."), stored.error());
    m_services.preferencesChanged();
    auto const missing = missingLines(m_transfer.missing(setup), fewLines);
    if (m_transfer.takesMenu())
        m_services.editor.replaceMenu(std::move(setup.menu.items), trc("edit that can be undone", "Import All"));
    Alert done { AlertStyle::informational, tr("All was imported.") };
    done.informativeText = joined({ missing, { tr("What you had before is kept, and can be imported again: %1", kept->path()) } });
    m_services.alerts.run(done);
}

void SetupCommands::tell(std::string message, std::string const& informativeText)
{
    Alert alert;
    alert.message = std::move(message);
    alert.informativeText = settingsTexts::asSentence(informativeText);
    m_services.alerts.run(alert);
}

} // namespace zv
