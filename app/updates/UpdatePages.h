#pragma once

#include "platform/program/Appcast.h"
#include "platform/program/UpdateWindow.h"

#include <optional>
#include <string>

/// The pages of the update window, and the meaning of their buttons.
namespace zv::updatePages {

enum class OfferAnswer { install, openReleasePage, skip, later };

/// The page that offers an update, and its answers.
struct Offer {
    UpdatePage page;
    std::vector<OfferAnswer> answers; ///< one a button
};

[[nodiscard]] Offer offer(AppcastItem const& item, std::string const& currentVersion, std::optional<std::string> const& owningPackage);
[[nodiscard]] UpdatePage checking();
/// `fraction` is negative while the size is unknown.
[[nodiscard]] UpdatePage downloading(AppcastItem const& item, double fraction);

// The ends of a session without an offer.
[[nodiscard]] UpdatePage upToDate(std::string const& currentVersion);
[[nodiscard]] UpdatePage notLookedFor(std::string const& reason);
[[nodiscard]] UpdatePage withoutAddress();
[[nodiscard]] UpdatePage notDownloaded(std::string const& reason);
[[nodiscard]] UpdatePage notOpened(std::string const& fileName, std::string const& reason);
[[nodiscard]] UpdatePage refused(std::string const& reason);

} // namespace zv::updatePages
