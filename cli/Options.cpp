#include "cli/Options.h"

#include "base/Translation.h"

#include <algorithm>

namespace zv {

namespace {

/// Long options only: file names such as "-***" begin with a single "-".
bool isOption(std::string_view argument) { return argument.size() > 2 && argument.starts_with("--"); }

} // namespace

Result<Options> Options::parse(Arguments arguments, std::span<Known const> known)
{
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        auto const& argument = arguments[i];
        if (argument == "--") {
            options.m_operands.insert(options.m_operands.end(), arguments.begin() + static_cast<std::ptrdiff_t>(i) + 1, arguments.end());
            break;
        }
        if (!isOption(argument)) {
            options.m_operands.push_back(argument);
            continue;
        }
        auto const equals = argument.find('=');
        auto const name = argument.substr(0, equals);
        auto const option = std::find_if(known.begin(), known.end(), [&](Known const& each) { return each.name == name; });
        if (option == known.end())
            return Failure { tr("there is no option %1", name) };
        bool const hasValue = equals != std::string::npos;
        if (option->takes == Takes::nothing && hasValue)
            return Failure { tr("the option %1 takes no value", name) };
        if (option->takes == Takes::value && !hasValue && i + 1 == arguments.size())
            return Failure { tr("the option %1 needs a value", name) };
        bool const takesNext = option->takes == Takes::value && !hasValue;
        options.m_values[name] = takesNext ? arguments[++i] : hasValue ? argument.substr(equals + 1) : "";
    }
    return options;
}

std::string const* Options::value(std::string_view name) const
{
    auto const found = m_values.find(name);
    return found == m_values.end() ? nullptr : &found->second;
}

} // namespace zv
