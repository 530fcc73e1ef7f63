#pragma once

namespace zv {

/// Gives the program's and the libraries' code and constants back to the system, which has them at hand when they are used
/// again: a start uses far more of them than all that follows. A debugger's breakpoints go, too.
void giveBackCodeOfTheStart();
/// Gives freed memory back to the system.
void giveBackFreedMemory();

} // namespace zv
