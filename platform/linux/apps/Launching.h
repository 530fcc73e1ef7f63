#pragma once

#include "base/Result.h"
#include "base/Url.h"
#include "platform/linux/entries/StartTrust.h"
#include "platform/session/Workspace.h"

#include <chrono>
#include <optional>
#include <string>

/// Starting and opening what a URL names. The functions block, and never run on the main thread.
/// `sessionBus` is an address; empty where there is no bus.
namespace zv {

struct OpenFailure {
    std::string reason;
    std::optional<UntrustedStart> untrusted {}; ///< set when nothing was tried, as the user has to be asked
};

/// Whether the URL is an application entry, a program, or a folder that is a whole application.
[[nodiscard]] bool isApplication(Url const& url);
/// Starts an entry, a folder that is a whole application, or a program's own file. Asks nobody.
[[nodiscard]] Result<void> launchApplication(Url const& application, std::string const& sessionBus);
/// Starts an application, follows a link entry, opens everything else in its handler. What is not
/// trusted is started only if it is just what the user has agreed to.
[[nodiscard]] Result<void, OpenFailure> openUrl(
    Url const& url, std::string const& sessionBus, StartTrust const& trust, std::optional<UntrustedStart> const& agreed = std::nullopt);
/// Sets the file's executable bit, so that it is trusted from now on.
void makeExecutable(std::string const& path);
/// Sends queued launches before this program may end: a launch over D-Bus is only queued when the
/// call returns.
void flushSharedBus(std::string const& sessionBus);
/// Selects the file in the file manager; where no file manager can, opens its folder. One that takes longer than the
/// patience is left to it.
[[nodiscard]] Result<void> revealFile(Url const& fileURL, std::string const& sessionBus, std::chrono::milliseconds patience = std::chrono::seconds(10));

} // namespace zv
