#pragma once

#include "base/Result.h"
#include "base/Url.h"

#include <string>

/// Starting and opening what a URL names. The functions block, and never run on the main thread.
/// `sessionBus` is an address; empty where there is no bus.
namespace zv {

/// Whether the URL is an application entry, or a folder that is a whole application.
[[nodiscard]] bool isApplication(Url const& url);
/// Starts an entry, a folder that is a whole application, or a program's own file.
[[nodiscard]] Result<void> launchApplication(Url const& application, std::string const& sessionBus);
/// Starts an application, follows a link entry, opens everything else in its handler.
[[nodiscard]] Result<void> openUrl(Url const& url, std::string const& sessionBus);
/// Sends queued launches before this program may end: a launch over D-Bus is only queued when the
/// call returns.
void flushSharedBus(std::string const& sessionBus);
/// Selects the file in the file manager; where no file manager can, opens its folder.
[[nodiscard]] Result<void> revealFile(Url const& fileURL, std::string const& sessionBus);

} // namespace zv
