#include "app/actions/FileDrop.h"

#include "app/actions/ActionAlerts.h"
#include "app/menu/DisplayText.h"
#include "base/Translation.h"

#include <utility>

namespace zv {

namespace {

std::string nameOf(Url const& file) { return displayText(file.lastPathComponent()); }

bool isWithin(Url const& place, Url const& file) { return place.path().starts_with(file.path() + "/"); }

} // namespace

void FileDrop::put(std::vector<Url> const& files, Url const& folder, FileTransfer how)
{
    putNext(std::make_shared<Batch>(Batch { { files.begin(), files.end() }, folder, how }));
}

/// A file that is in the folder already stays; one that holds the folder is a problem.
void FileDrop::putNext(BatchRef const& batch)
{
    if (batch->files.empty())
        return report(*batch);
    auto const file = batch->files.front();
    batch->files.pop_front();
    auto const place = batch->folder.appending(file.lastPathComponent());
    if (place == file)
        return putNext(batch);
    if (batch->how != FileTransfer::link && isWithin(place, file)) {
        batch->problems += problemLine(nameOf(file), tr("It cannot be put into itself."));
        return putNext(batch);
    }
    // On a thread that nothing waits for: the folder may lie on a server that does not answer.
    std::function<void(bool)> const go = m_lifetime.guard([this, batch, file, place](bool isTaken) {
        if (isTaken)
            replace(batch, file, place);
        else
            transfer(batch, file, place);
    });
    m_system.time.tasks.runDetached(
        [disk = m_system.files.disk, place, go] { return std::function<void()>([go, isTaken = disk->isTaken(place)] { go(isTaken); }); });
}

void FileDrop::replace(BatchRef const& batch, Url const& file, Url const& place)
{
    m_desk.application.activate();
    if (m_desk.alerts.run(replaceQuestion(nameOf(file), nameOf(batch->folder))) != 0)
        return putNext(batch);
    m_system.session.workspace.moveToTrash(place, m_lifetime.guard([this, batch, file, place](Result<void> const& moved) {
        if (moved)
            return transfer(batch, file, place);
        batch->problems += problemLine(nameOf(file), moved.error());
        putNext(batch);
    }));
}

void FileDrop::transfer(BatchRef const& batch, Url const& file, Url const& place)
{
    m_system.session.workspace.transfer(file, place, batch->how, m_lifetime.guard([this, batch, file](Result<void> const& done) {
        if (!done)
            batch->problems += problemLine(nameOf(file), done.error());
        putNext(batch);
    }));
}

void FileDrop::report(Batch const& batch)
{
    if (batch.problems.empty())
        return;
    m_desk.application.activate();
    m_desk.alerts.run(dropAlert(nameOf(batch.folder), batch.problems));
}

} // namespace zv
