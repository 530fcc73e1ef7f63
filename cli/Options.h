#pragma once

#include "base/Result.h"
#include "cli/Command.h"

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// A command's arguments, split: options begin with "--". Arguments after a bare "--" are never options.
class Options {
public:
    enum class Takes { nothing, value };
    struct Known {
        std::string_view name; ///< "--json"
        Takes takes = Takes::nothing;
    };

    /// Options may stand anywhere; "--at=1,2" and "--at 1,2" are equal. The failure is a sentence
    /// about the first wrong argument.
    [[nodiscard]] static Result<Options> parse(Arguments arguments, std::span<Known const> known);

    [[nodiscard]] bool has(std::string_view name) const { return m_values.contains(name); }
    /// Null when the option is absent; the last value of a repeated option.
    [[nodiscard]] std::string const* value(std::string_view name) const;
    [[nodiscard]] std::vector<std::string> const& operands() const { return m_operands; }

private:
    std::map<std::string, std::string, std::less<>> m_values;
    std::vector<std::string> m_operands;
};

} // namespace zv
