#pragma once

#include "platform/program/RunningProgram.h"
#include "platform/time/Tasks.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// What a command asks of the running program. It goes there as a text, and so does the
/// answer, on systems whose way between processes carries bytes.
struct ProgramMessage {
    enum class Kind { showMenu, openSettings, quit, addFiles, hotkeys, findings };

    Kind kind = Kind::showMenu;
    std::optional<RunningProgram::ScreenPoint> at {}; ///< of showMenu
    std::vector<Url> files {}; ///< of addFiles
};

[[nodiscard]] std::string encoded(ProgramMessage const& request);
/// Nothing for a text that is no request.
[[nodiscard]] std::optional<ProgramMessage> decodedRequest(std::string_view text);

/// What was asked for, empty where nothing was; the failure is a sentence.
using ProgramAnswer = Result<std::string>;

[[nodiscard]] std::string encoded(ProgramAnswer const& answer);
/// Nothing for a text that is no answer.
[[nodiscard]] std::optional<ProgramAnswer> decodedAnswer(std::string_view text);

/// What the running program does for those who ask.
struct ProgramHandlers {
    std::function<void(std::optional<RunningProgram::ScreenPoint>)> showMenu;
    std::function<void()> openSettings;
    std::function<void()> quit;
    std::function<Result<void>(std::vector<Url>)> addFiles;
    std::function<std::string()> hotkeys;
    std::function<std::string()> findings;
};

/// The answer to what another process sent. What shows or ends something happens in a later
/// turn, when the answer has gone: who asks never waits for what it asked for.
[[nodiscard]] std::string answerTo(std::string_view request, ProgramHandlers const& services, Tasks& tasks);

} // namespace zv
