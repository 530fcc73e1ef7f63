#include "base/Translation.h"
#include "cli/CommandLine.h"
#include "cli/Commands.h"

#include <algorithm>
#include <ostream>

namespace zv {

namespace {

using Words = std::vector<std::string>;

/// The word without its quotes, one of which may still be open, as bash hands it over.
std::string unquoted(std::string_view word)
{
    std::string plain;
    char quote = '\0';
    for (std::size_t i = 0; i < word.size(); ++i) {
        bool const isQuote = word[i] == '"' || word[i] == '\'';
        if (word[i] == '\\' && quote != '\'')
            plain += i + 1 < word.size() ? std::string(1, word[++i]) : std::string();
        else if (isQuote && (quote == '\0' || quote == word[i]))
            quote = quote == '\0' ? word[i] : '\0';
        else
            plain += word[i];
    }
    return plain;
}

bool isOption(std::string_view word) { return word.starts_with("--"); }

/// The options in a command's usage: "[--json] NAME…".
std::vector<Completion> optionsOf(Command const& command)
{
    std::vector<Completion> options;
    for (auto start = command.usage.find("--"); start != std::string_view::npos; start = command.usage.find("--", start + 2)) {
        auto const rest = command.usage.substr(start);
        options.push_back({ std::string(rest.substr(0, rest.find_first_of(" ]="))) });
    }
    return options;
}

std::vector<Completion> commandNames()
{
    std::vector<Completion> names;
    for (auto const* command : commandTable())
        names.push_back({ std::string(command->name), tr(command->summary) });
    names.push_back({ "--help", tr("the usage") });
    names.push_back({ "--version", tr("the version") });
    return names;
}

std::vector<Completion> completionsAfter(Words const& words, CommandContext& context)
{
    if (words.empty())
        return commandNames();
    auto const commands = commandTable();
    auto const found = std::find_if(commands.begin(), commands.end(), [&](Command const* command) { return command->name == words.front(); });
    if (found == commands.end())
        return {};
    auto completions = optionsOf(**found);
    Words operands(words.begin() + 1, words.end());
    std::erase_if(operands, isOption);
    if ((*found)->complete)
        std::ranges::move((*found)->complete(operands, context), std::back_inserter(completions));
    return completions;
}

bool isOneLine(std::string const& text) { return text.find_first_of("\n\t") == std::string::npos; }

ExitStatus run(Arguments arguments, CommandContext& context)
{
    Words words(arguments.begin(), arguments.end());
    if (!words.empty() && words.front() == "--typed") {
        words.erase(words.begin());
        std::ranges::transform(words, words.begin(), unquoted);
    }
    auto const begin = words.empty() ? std::string() : words.back();
    if (!words.empty())
        words.pop_back();
    for (auto const& [text, meaning] : completionsAfter(words, context)) {
        if (text.starts_with(begin) && isOneLine(text))
            context.out() << text << (meaning.empty() ? "" : "\t") << meaning << '\n';
    }
    return ExitStatus::done;
}

} // namespace

constexpr Command completeCommand { "complete", "[--typed] WORD… BEGIN", mark("what may follow these words, one a line; for shells"), run };

} // namespace zv
