#include "app/settings/SettingsTexts.h"

#include "platform/text/Text.h"

namespace zv::settingsTexts {

std::string selected(std::size_t count) { return count == 0 ? "No item selected" : std::to_string(count) + " items selected"; }

std::string filesNotAdded(std::size_t count) { return count == 1 ? "One file could not be added." : std::to_string(count) + " files could not be added."; }

std::string recorderWith(std::string const& value) { return std::string(recorder) + ": " + value; }

std::string doesNotExist(std::string const& path) { return path + " does not exist."; }

std::string asSentence(std::string const& reason)
{
    auto const first = firstGraphemes(reason, 1);
    return first.empty() ? reason : upperCased(first.front()) + reason.substr(first.front().size());
}

} // namespace zv::settingsTexts
