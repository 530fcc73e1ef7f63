#pragma once

namespace zv {

/// Where the program was started by a link to it, such as one in a folder of commands, starts
/// the link's target in place of this process, with the same arguments: the system would take
/// the link's folder for the application. Else returns.
void leaveLink(char** arguments);

} // namespace zv
