#include "base/Translation.h"
#include "cli/Commands.h"
#include "cli/Options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <ostream>

namespace zv {

namespace {

/// The largest number that any setting takes; far above what is of use.
constexpr std::int64_t maximumNumber = 1'000'000;

using Value = decltype(PreferenceDescription::defaultValue);

PreferenceDescription const* descriptionOf(std::string_view key)
{
    auto const all = Preferences::descriptions();
    auto const found = std::find_if(all.begin(), all.end(), [&](PreferenceDescription const& each) { return each.key == key; });
    return found == all.end() ? nullptr : &*found;
}

bool isBoolean(PreferenceDescription const& description) { return std::holds_alternative<bool>(description.defaultValue); }

/// The value as the running program reads it, also an odd stored one.
std::string shownValue(PreferenceDescription const& description, UserDefaults const& defaults)
{
    if (isBoolean(description))
        return defaults.boolForKey(description.key) ? "true" : "false";
    return std::to_string(defaults.integerForKey(description.key));
}

std::optional<bool> parseBoolean(std::string_view text)
{
    static constexpr std::array<std::string_view, 4> yes { "true", "yes", "on", "1" };
    static constexpr std::array<std::string_view, 4> no { "false", "no", "off", "0" };
    if (std::find(yes.begin(), yes.end(), text) != yes.end())
        return true;
    if (std::find(no.begin(), no.end(), text) != no.end())
        return false;
    return std::nullopt;
}

std::optional<std::int64_t> parseNumber(std::string_view text)
{
    std::int64_t number = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    bool const isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole && number >= 0 && number <= maximumNumber ? std::optional(number) : std::nullopt;
}

Result<PropertyList> parseValue(PreferenceDescription const& description, std::string const& text)
{
    if (isBoolean(description)) {
        if (auto const boolean = parseBoolean(text))
            return PropertyList(*boolean);
        return Failure { tr("\"%1\" is no value of %2; it is true or false", text, description.key) };
    }
    if (auto const number = parseNumber(text))
        return PropertyList(*number);
    return Failure { tr("\"%1\" is no value of %2; it is a number from 0 to %3", text, description.key, std::to_string(maximumNumber)) };
}

ExitStatus failUnknownKey(CommandContext& context, std::string const& key)
{
    if (key == MenuStore::defaultsKey)
        return fail(context, tr("the menu is no setting; see zanthe-vell export and import"));
    return fail(context, tr("there is no setting \"%1\"; see zanthe-vell prefs", key));
}

ExitStatus failLocked(CommandContext& context, std::string const& key) { return fail(context, tr("%1 is locked by an administrator of this computer", key)); }

ExitStatus listAll(CommandContext& context)
{
    for (auto const& description : Preferences::descriptions()) {
        auto const key = std::string(description.key);
        auto const value = shownValue(description, context.files().defaults);
        context.out() << key << std::string(23 - key.size(), ' ') << value << std::string(9 - std::min<std::size_t>(8, value.size()), ' ')
                      << tr(description.meaning) << (context.preferences().isLocked(key) ? tr(" (locked)") : std::string()) << '\n';
    }
    return ExitStatus::done;
}

ExitStatus readOne(std::vector<std::string> const& operands, CommandContext& context)
{
    auto const* description = descriptionOf(operands[1]);
    if (!description)
        return failUnknownKey(context, operands[1]);
    context.out() << shownValue(*description, context.files().defaults) << '\n';
    return ExitStatus::done;
}

/// The running program does the same; where none runs, nobody else would.
void forgetChoicesIfUnwanted(CommandContext& context)
{
    auto const& file = context.places().chosenFile;
    if (!context.files().defaults.boolForKey(Preferences::rememberChoicesKey) && context.files().disk->exists(file))
        (void)context.files().disk->remove(file);
}

ExitStatus writeOne(std::vector<std::string> const& operands, CommandContext& context)
{
    auto const* description = descriptionOf(operands[1]);
    if (!description)
        return failUnknownKey(context, operands[1]);
    if (context.preferences().isLocked(operands[1]))
        return failLocked(context, operands[1]);
    auto value = parseValue(*description, operands[2]);
    if (!value)
        return fail(context, value.error());
    if (auto const saved = context.files().defaults.setObject(description->key, std::move(value).value()); !saved)
        return fail(context, tr("could not save %1: %2", operands[1], saved.error()));
    forgetChoicesIfUnwanted(context);
    return ExitStatus::done;
}

ExitStatus resetOne(std::vector<std::string> const& operands, CommandContext& context)
{
    auto const* description = descriptionOf(operands[1]);
    if (!description)
        return failUnknownKey(context, operands[1]);
    if (context.preferences().isLocked(operands[1]))
        return failLocked(context, operands[1]);
    if (auto const removed = context.files().defaults.removeObject(description->key); !removed)
        return fail(context, tr("could not reset %1: %2", operands[1], removed.error()));
    return ExitStatus::done;
}

struct Verb {
    std::string_view name;
    std::size_t operandCount; ///< including the verb
    ExitStatus (*run)(std::vector<std::string> const& operands, CommandContext& context);
};

constexpr Verb verbs[] = {
    { "read", 1, [](std::vector<std::string> const&, CommandContext& context) { return listAll(context); } },
    { "read", 2, readOne },
    { "write", 3, writeOne },
    { "reset", 2, resetOne },
};

std::vector<Completion> operandsAfter(std::vector<std::string> const& given, CommandContext& /*context*/)
{
    if (given.empty())
        return { { "read" }, { "write" }, { "reset" } };
    std::vector<Completion> operands;
    auto const* description = given.size() == 2 && given[0] == "write" ? descriptionOf(given[1]) : nullptr;
    if (description && isBoolean(*description))
        return { { "true" }, { "false" } };
    for (auto const& each : Preferences::descriptions()) {
        if (given.size() == 1)
            operands.push_back({ std::string(each.key), tr(each.meaning) });
    }
    return operands;
}

ExitStatus run(Arguments arguments, CommandContext& context)
{
    // Parses no options: a value may begin with "-", and is then refused as a value, with its reason.
    std::vector<std::string> const operands(arguments.begin(), arguments.end());
    (void)context.preferences(); // registers the defaults
    if (operands.empty())
        return listAll(context);
    for (auto const& verb : verbs) {
        if (verb.name == operands[0] && verb.operandCount == operands.size())
            return verb.run(operands, context);
    }
    return failUsage(context, prefsCommand, tr("read, write or reset one setting"));
}

} // namespace

constexpr Command prefsCommand { "prefs", "[read [KEY] | write KEY VALUE | reset KEY]", mark("the settings: all, one, a new value, the default again"), run,
    operandsAfter };

} // namespace zv
