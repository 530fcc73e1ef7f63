#pragma once

#include <string>

namespace zv::tests {

/// The path of a file of the source tree, such as "app/resources/Library.plist".
std::string inSourceTree(std::string const& name);

} // namespace zv::tests
