#pragma once

#include "platform/files/FolderReader.h"
#include "platform/linux/entries/DesktopEntry.h"
#include "platform/linux/files/MountWatch.h"
#include "platform/linux/files/NameDoubts.h"

#include <string>

namespace zv {

/// Reads folders by getdents64: one call for hundreds of names, each with its type.
class LinuxFolderReader : public FolderReader {
public:
    explicit LinuxFolderReader(DesktopAudience audience, std::string mountInfoPath = MountWatch::systemTable, NameDoubts doubts = {});

    Result<FolderContents, FolderReadFailure> read(Url const& folder, HiddenFiles hiddenFiles) const override;
    bool isRemote(Url const& folder) const override;
    std::vector<std::int64_t> measure(Url const& folder, FolderContents const& contents, FileMeasure what) const override;
    std::optional<NameDoubt> doubtAbout(Url const& file) const override;

private:
    DesktopAudience m_audience;
    mutable MountWatch m_mounts;
    NameDoubts m_doubts;
};

} // namespace zv
