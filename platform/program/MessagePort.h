#pragma once

#include "base/Result.h"

#include <optional>
#include <string>

namespace zv {

/// Carries texts to the program that runs for this user, and its answers back. Main thread only.
class MessagePort {
public:
    virtual ~MessagePort() = default;
    [[nodiscard]] virtual bool isRunning() const = 0;
    /// Sends the request and waits a few seconds at most; nothing without an answer.
    [[nodiscard]] virtual std::optional<std::string> ask(std::string const& request) = 0;
    /// Starts the program and waits until it can be asked.
    [[nodiscard]] virtual Result<void> start() = 0;
};

} // namespace zv
