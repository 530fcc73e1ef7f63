#pragma once

#include "base/Translation.h"

/// Texts about updates, beside the update window's pages, which updatePages words.
namespace zv::updateTexts {

inline constexpr Sentence notes = mark("Release notes"); ///< for assistive tools
inline constexpr Sentence showUpdate = markc("button", "Show"); ///< the action of a click on the notification
inline constexpr Sentence feedUnreadable = mark("the feed cannot be read: %1");
inline constexpr Sentence feedNotOurs = mark("the list of versions is not signed as ours are: it is damaged, or it is not ours");
inline constexpr Sentence notSigned = mark("The feed gives no signature for it.");
inline constexpr Sentence wronglySigned = mark("Its signature does not match: it is damaged, or it is not ours.");
inline constexpr Sentence noFramework = mark("Sparkle.framework is not in the application, so there is nothing to update it with.");

} // namespace zv::updateTexts
