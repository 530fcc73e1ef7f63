#pragma once

namespace zv {

/// Where the program was started by a link to it, such as one in a folder of commands, the
/// system would take the folder of that link for the application. Then starts what the link
/// leads to in place of this process, with the same arguments; else returns.
void leaveLink(char** arguments);

} // namespace zv
