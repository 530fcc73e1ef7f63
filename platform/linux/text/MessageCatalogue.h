#pragma once

#include <string>
#include <vector>

namespace zv {

/// Has sentences come from the C library's message catalogues in the first of these folders that exists. LANGUAGE, LC_ALL,
/// LC_MESSAGES and LANG choose the language. Numbers are read and written as before. Called once, at the start.
void useMessageCatalogue(std::vector<std::string> const& folders);

} // namespace zv
