#pragma once

#include "platform/files/FolderReader.h"
#include "platform/linux/entries/DesktopEntry.h"
#include "platform/linux/entries/StartTrust.h"
#include "platform/linux/files/MountWatch.h"

#include <string>

namespace zv {

/// Reads folders by getdents64: one call for hundreds of names, each with its type.
class LinuxFolderReader : public FolderReader {
public:
    explicit LinuxFolderReader(DesktopAudience audience, std::string mountInfoPath = MountWatch::systemTable, StartTrust trust = StartTrust());

    Result<FolderContents, FolderReadFailure> read(Url const& folder, HiddenFiles hiddenFiles) const override;
    bool isRemote(Url const& folder) const override;

private:
    DesktopAudience m_audience;
    mutable MountWatch m_mounts;
    StartTrust m_trust;
};

} // namespace zv
