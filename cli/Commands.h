#pragma once

#include "cli/Command.h"

namespace zv {

// Each command has its file: cli/PrefsCommand.cpp defines prefsCommand.
extern Command const addCommand;
extern Command const checkNameCommand;
extern Command const completeCommand; ///< hidden: for shells
extern Command const doctorCommand;
extern Command const exportCommand;
extern Command const hotkeysCommand;
extern Command const importCommand;
extern Command const menuCommand;
extern Command const performCommand;
extern Command const prefsCommand;
extern Command const quitCommand;
extern Command const settingsCommand;
extern Command const showCommand;

} // namespace zv
