#include "base/Translation.h"

namespace zv {

namespace {

Translator installed = nullptr;

bool isPlace(std::string_view text, std::size_t at) { return text[at] == '%' && at + 1 < text.size() && text[at + 1] >= '1' && text[at + 1] <= '9'; }

} // namespace

void translateBy(Translator translator) { installed = translator; }

std::string filled(std::string_view text, std::initializer_list<std::string_view> arguments)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto const number = isPlace(text, i) ? static_cast<std::size_t>(text[i + 1] - '1') : arguments.size();
        if (number < arguments.size()) {
            result += arguments.begin()[number];
            ++i;
        } else {
            result += text[i];
        }
    }
    return result;
}

std::string tr(Sentence const& sentence)
{
    auto translated = installed && !sentence.isEmpty() ? installed(sentence, nullptr, 0) : std::string();
    return translated.empty() ? sentence.english : translated;
}

std::string trn(char const* one, char const* many, std::size_t count, std::string_view second)
{
    auto text = installed ? installed(mark(one), many, count) : std::string();
    if (text.empty())
        text = count == 1 ? one : many;
    return filled(text, { std::to_string(count), second });
}

std::string quoted(std::string_view title)
{
    // TRANSLATORS: the language's quotation marks, put around titles and names of files; those names may run in another
    // direction, so right-to-left languages put U+2068 before %1 and U+2069 after it
    return tr("“%1”", title);
}

std::string inSequence(std::string const& first, std::string const& second)
{
    if (first.empty() || second.empty())
        return first + second;
    // TRANSLATORS: a space in most languages; Chinese and Japanese have none
    auto const space = trc("between two sentences", " ");
    return first + space + second;
}

std::string listed(std::vector<std::string> const& words)
{
    auto const comma = words.size() > 1 ? trc("between the words of a list", ", ") : std::string();
    std::string text;
    for (auto const& word : words)
        text += (text.empty() ? "" : comma) + word;
    return text;
}

} // namespace zv
