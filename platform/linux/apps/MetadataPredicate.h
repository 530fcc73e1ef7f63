#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// The content types that a query string may name; everything else is a document.
enum class UsedItemType { application, folder, document };

/// A metadata query string, understood as far as a list of recently used things can answer
/// it: conditions on the date of last use and on the content type, joined by "&&".
struct MetadataPredicate {
    struct TypeCondition {
        UsedItemType type = UsedItemType::document;
        bool isExcluded = false;
    };

    std::int64_t usedWithinSeconds = 0; ///< 0: whenever
    std::vector<TypeCondition> types;

    /// Nothing when there is a condition that this does not understand.
    [[nodiscard]] static std::optional<MetadataPredicate> parse(std::string_view queryString);
    [[nodiscard]] bool admits(UsedItemType type) const;
};

} // namespace zv
