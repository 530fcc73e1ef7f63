#include "app/model/NameTable.h"

#include "base/Log.h"
#include "platform/text/Text.h"

#include <cstdlib>

namespace zv {

NameTable::NameTable(std::span<std::string_view const> names)
{
    m_positions.reserve(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        auto const [position, isNew] = m_positions.emplace(lowerCased(names[i]), i);
        if (isNew)
            continue;
        logLine("Duplicate values for key: '" + position->first + "'");
        std::abort();
    }
}

std::optional<std::size_t> NameTable::find(std::string_view name) const
{
    auto const found = m_positions.find(lowerCased(name));
    return found == m_positions.end() ? std::nullopt : std::optional(found->second);
}

} // namespace zv
