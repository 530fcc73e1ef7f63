#pragma once

#include <concepts>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/// Sentences in the user's language. The English text is the key; `po/zanthe-vell.pot` lists all keys, as `po/update` finds
/// them by the names of these functions. Without a catalogue, and for what it lacks, English stands. Any thread.
///
/// A sentence is whole: what varies in it is an argument, %1 to %9, which a translation may put elsewhere. A text that
/// programs read (identifiers, the log, JSON) is no sentence. A comment that begins with TRANSLATORS: directly above is
/// shown to translators.
namespace zv {

/// A sentence in a constant table, looked up where it is shown.
struct Sentence {
    char const* english = "";
    char const* context = nullptr; ///< what the word means here, where it means two things in English

    [[nodiscard]] constexpr bool isEmpty() const { return *english == '\0'; }
};

constexpr Sentence mark(char const* english) { return { english }; }
constexpr Sentence markc(char const* context, char const* english) { return { english, context }; }

/// Looks a sentence up: the form for `count` where `many` is given. Empty where there is no translation.
using Translator = std::string (*)(Sentence const& sentence, char const* many, unsigned long count);
/// Installs the system's catalogue; null takes it away, for English. Called at the start, before other threads are.
void translateBy(Translator translator);

/// "%1" to "%9" replaced by the arguments, whose own signs stay as they are.
[[nodiscard]] std::string filled(std::string_view text, std::initializer_list<std::string_view> arguments);

[[nodiscard]] std::string tr(Sentence const& sentence);
[[nodiscard]] inline std::string tr(char const* english) { return tr(mark(english)); }
[[nodiscard]] inline std::string trc(char const* context, char const* english) { return tr(markc(context, english)); }

template <std::convertible_to<std::string_view>... Arguments> [[nodiscard]] std::string tr(Sentence const& sentence, Arguments const&... arguments)
{
    return filled(tr(sentence), { arguments... });
}

template <std::convertible_to<std::string_view>... Arguments> [[nodiscard]] std::string tr(char const* english, Arguments const&... arguments)
{
    return filled(tr(mark(english)), { arguments... });
}

/// The form for the count, which is its %1; `second` is its %2.
[[nodiscard]] std::string trn(char const* one, char const* many, std::size_t count, std::string_view second = {});

/// The title in the language's own quotation marks.
[[nodiscard]] std::string quoted(std::string_view title);
/// Two sentences, one after the other, with the space that the language has between them. An empty one leaves none.
[[nodiscard]] std::string inSequence(std::string const& first, std::string const& second);
/// The words with the language's own comma between them.
[[nodiscard]] std::string listed(std::vector<std::string> const& words);

} // namespace zv
