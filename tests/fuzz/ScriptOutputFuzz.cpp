#include "app/menu/ScriptOutput.h"
#include "platform/text/Text.h"
#include "tests/fuzz/Model.h"

using namespace zv;

namespace {

std::size_t requireShowable(std::vector<ScriptEntry> const& entries, std::size_t depth)
{
    fuzz::require(depth <= ScriptLimits::depth, "a script's menus are too deep");
    auto count = entries.size();
    for (auto const& entry : entries) {
        fuzz::require(isValidUtf8(entry.title) && entry.title.find('\n') == std::string::npos, "a script's title cannot be shown");
        fuzz::require(graphemeCount(entry.title) <= ScriptLimits::titleLength + 1, "a script's title is too long");
        fuzz::require(!entry.isSeparator || entry.children.empty(), "a separator has a submenu");
        count += requireShowable(entry.children, depth + 1);
    }
    return count;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    auto const entries = parseScriptOutput({ reinterpret_cast<char const*>(data), size });
    fuzz::require(requireShowable(entries, 0) <= ScriptLimits::lines, "a script has too many entries");
    return 0;
}
