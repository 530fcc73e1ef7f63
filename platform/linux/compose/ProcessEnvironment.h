#pragma once

#include "platform/program/Environment.h"

namespace zv {

/// The current environment of the process. Read only here, and passed down.
[[nodiscard]] Environment processEnvironment();

/// Sets a variable for a library of this program, unless the user did; what is launched does not get it. Before any
/// thread.
void setForThisProgramAlone(char const* name, char const* value);

/// What this process was given to come to the front with; empty for nothing.
[[nodiscard]] std::string activationTokenOf(Environment const& environment);
/// Lets the next window of ours come to the front with it: the toolkit takes it out of the
/// environment, whichever way it came. Main thread.
void useActivationToken(std::string const& token);

} // namespace zv
