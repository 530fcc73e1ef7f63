#include "app/shell/Relocation.h"

#include "app/shell/TestEnvironment.h"
#include "base/MainThread.h"
#include "base/Translation.h"

namespace zv {

namespace {

std::string reasonText(RelocationSource source)
{
    switch (source) {
    case RelocationSource::translocated:
        return tr("Zanthe Vell is running from the read-only copy macOS makes when an app is opened from the folder it was downloaded to. It cannot check for "
                  "updates from there, and the copy is thrown away when it quits.");
    case RelocationSource::diskImage:
        return tr("Zanthe Vell is running from a disk image. It cannot check for updates from there, and it quits as soon as the image is ejected.");
    case RelocationSource::temporaryPlace:
        return tr(
            "Zanthe Vell is running from a place that is read-only or temporary. It cannot check for updates from there, and it may be gone the next time "
            "you look for it.");
    case RelocationSource::none:
        break;
    }
    return {};
}

std::string nameWithoutExtension(Url const& bundle) { return std::string(deletingPathExtension(bundle.lastPathComponent())); }

} // namespace

bool Relocation::relocateIfNeeded(Url const& bundle, Environment const& environment)
{
    assertMainThread();
    if (isRunningUnderTests(environment))
        return false;
    auto const source = m_services.installation.source(bundle);
    if (source == RelocationSource::none)
        return false;
    auto const destination = m_services.installation.applicationsFolder();
    if (!destination)
        return false;
    // If told to quit while an alert was open, the program builds nothing more.
    if (!userWantsCopy(source, *destination))
        return m_services.application.isTerminating();
    auto const copy = copyTo(*destination, bundle);
    if (!copy) {
        tellCopyFailed(bundle, *destination, copy.error());
        return m_services.application.isTerminating();
    }
    openCopy(*copy, *destination);
    return true;
}

bool Relocation::userWantsCopy(RelocationSource source, Url const& destination)
{
    m_services.application.setActivationPolicy(ActivationPolicy::regular);
    m_services.application.activate();
    Alert alert;
    alert.style = AlertStyle::informational;
    alert.message = tr("Copy Zanthe Vell to %1?", destination.path());
    alert.informativeText = reasonText(source) + "\n\n"
        + tr("Copying it to %1 and relaunching from there fixes both. The copy you opened is left where it is.", destination.path());
    alert.buttons = { tr("Copy to Applications Folder"), tr("Not Now") };
    alert.escapeButton = 1;
    return m_services.alerts.run(alert) == 0;
}

Result<Url> Relocation::copyTo(Url const& destination, Url const& bundle)
{
    auto& installation = m_services.installation;
    auto const folder = installation.makeReplacementFolder(destination);
    if (!folder)
        return Failure { folder.error() };
    auto const copy = folder->appending(bundle.lastPathComponent());
    auto const target = destination.appending(bundle.lastPathComponent());
    auto done = installation.copy(bundle, copy);
    if (done)
        done = installation.put(copy, target);
    installation.removeFolder(*folder);
    if (done)
        done = installation.announce(target);
    if (!done)
        return Failure { done.error() };
    return target;
}

void Relocation::tellCopyFailed(Url const& bundle, Url const& destination, std::string const& reason)
{
    Alert alert;
    alert.message = tr("%1 could not be copied to %2.", quoted(nameWithoutExtension(bundle)), destination.path());
    alert.informativeText = reason;
    m_services.alerts.run(alert);
}

void Relocation::openCopy(Url const& copy, Url const& destination)
{
    // Copied: the services outlive the run loop, this object may not.
    auto const services = m_services;
    services.installation.giveWay();
    services.workspace.openNewInstance(copy, [services, copy, destination](Result<void> const& started) {
        if (!started) {
            Alert alert;
            alert.message = tr("%1 could not be opened after copying.", quoted(nameWithoutExtension(copy)));
            alert.informativeText = inSequence(started.error(), tr("Open the copy in %1.", destination.path()));
            services.application.activate(); // long after the question, which the user may have left
            services.alerts.run(alert);
        }
        services.application.terminate();
    });
}

} // namespace zv
