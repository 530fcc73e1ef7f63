#pragma once

#include "platform/program/RunningProgram.h"
#include "platform/time/Tasks.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// A command's request to the running program. Request and answer travel as text where the system's
/// messages carry bytes.
struct ProgramMessage {
    enum class Kind { showMenu, openSettings, quit, addFiles, hotkeys, findings };

    Kind kind = Kind::showMenu;
    std::optional<RunningProgram::ScreenPoint> at {}; ///< of showMenu
    std::vector<Url> files {}; ///< of addFiles
};

[[nodiscard]] std::string encoded(ProgramMessage const& request);
/// Empty when the text is no request.
[[nodiscard]] std::optional<ProgramMessage> decodedRequest(std::string_view text);

/// The result, which may be empty; the failure is a sentence.
using ProgramAnswer = Result<std::string>;

[[nodiscard]] std::string encoded(ProgramAnswer const& answer);
/// Empty when the text is no answer.
[[nodiscard]] std::optional<ProgramAnswer> decodedAnswer(std::string_view text);

/// Answers another process's request. Handlers that show or end something run in a later turn,
/// after the answer has gone, so that the caller never waits for them.
[[nodiscard]] std::string answerTo(std::string_view request, ProgramHandlers const& handlers, Tasks& tasks);

} // namespace zv
