#pragma once

#include "platform/files/FileSystem.h"
#include "platform/linux/entries/StartTrust.h"
#include "platform/linux/files/MountWatch.h"

#include <string>

namespace zv {

/// The disk. A file on a remote file system is assumed to exist, with traits guessed from its
/// name: a check might hang.
class LinuxFileSystem : public FileSystem {
public:
    explicit LinuxFileSystem(std::string mountInfoPath = MountWatch::systemTable, StartTrust trust = StartTrust());

    [[nodiscard]] bool exists(Url const& url) const override;
    [[nodiscard]] bool isTaken(Url const& url) const override;
    [[nodiscard]] std::optional<FileTraits> traits(Url const& url) const override;
    [[nodiscard]] Url resolvingSymlinks(Url const& url) const override;
    [[nodiscard]] std::string localizedName(Url const& url) const override;
    [[nodiscard]] std::optional<std::string> volumeName(Url const& url) const override;
    [[nodiscard]] bool isOnReadOnlyVolume(Url const& url) const override;
    [[nodiscard]] Result<void> createDirectory(Url const& url) override;
    [[nodiscard]] bool isWritableDirectory(Url const& url) const override;
    [[nodiscard]] Result<std::vector<std::byte>> read(Url const& url) const override;
    [[nodiscard]] Result<void> write(Url const& url, std::vector<std::byte> const& bytes) override;
    [[nodiscard]] Result<void> writePrivately(Url const& url, std::vector<std::byte> const& bytes) override;
    [[nodiscard]] Result<void> makeStartable(Url const& url) override;
    [[nodiscard]] Result<std::vector<std::string>> names(Url const& folder) const override;
    [[nodiscard]] Result<void> remove(Url const& url) override;
    [[nodiscard]] Result<void> rename(Url const& from, Url const& to) override;

private:
    mutable MountWatch m_mounts;
    StartTrust m_trust;
};

} // namespace zv
