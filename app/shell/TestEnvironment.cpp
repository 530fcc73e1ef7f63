#include "app/shell/TestEnvironment.h"

#include <algorithm>
#include <array>

namespace zv {

bool isRunningUnderTests(Environment const& environment)
{
    static constexpr std::array<char const*, 3> keys { "XCTestBundlePath", "XCTestSessionIdentifier", "XCTestConfigurationFilePath" };
    return std::any_of(keys.begin(), keys.end(), [&](char const* key) { return environment.contains(key); });
}

} // namespace zv
