#pragma once

/// Texts about updates, beside the update window's pages, which updatePages words.
namespace zv::updateTexts {

inline constexpr char const* notes = "Release notes"; ///< for assistive tools
inline constexpr char const* showUpdate = "Show"; ///< the action of a click on the notification
inline constexpr char const* feedUnreadable = "the feed cannot be read: ";
inline constexpr char const* feedNotOurs = "the list of versions is not signed as ours are: it is damaged, or it is not ours";
inline constexpr char const* notSigned = "The feed gives no signature for it.";
inline constexpr char const* wronglySigned = "Its signature does not match: it is damaged, or it is not ours.";
inline constexpr char const* noFramework = "Sparkle.framework is not in the application, so there is nothing to update it with.";

} // namespace zv::updateTexts
