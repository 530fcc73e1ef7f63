#include "base/Translation.h"

#include <atomic>

namespace zv {

namespace {

std::atomic<Translator> installed = nullptr;
NumberWriter writer = nullptr;
constexpr Sentence comma = markc("between the words of a list", ", ");

bool isPlace(std::string_view text, std::size_t at) { return text[at] == '%' && at + 1 < text.size() && text[at + 1] >= '1' && text[at + 1] <= '9'; }

} // namespace

void translateBy(Translator translator, NumberWriter numberWriter)
{
    installed = translator;
    writer = numberWriter;
}

EnglishMeanwhile::EnglishMeanwhile()
    : m_translator(installed.exchange(nullptr))
{
}

EnglishMeanwhile::~EnglishMeanwhile() { installed = m_translator; }

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
    Translator const translator = installed;
    auto translated = translator && !sentence.isEmpty() ? translator(sentence, nullptr, 0) : std::string();
    return translated.empty() ? sentence.english : translated;
}

std::string trn(char const* one, char const* many, std::size_t count, std::string_view second)
{
    Translator const translator = installed;
    auto text = translator ? translator(mark(one), many, count) : std::string();
    if (text.empty())
        text = count == 1 ? one : many;
    return filled(text, { number(static_cast<std::int64_t>(count)), second });
}

std::string number(std::int64_t value)
{
    Translator const translator = installed;
    bool const isEnglish = !translator || translator(comma, nullptr, 0).empty();
    return isEnglish || !writer ? std::to_string(value) : writer(value);
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
    auto const between = words.size() > 1 ? tr(comma) : std::string();
    std::string text;
    for (auto const& word : words)
        text += (text.empty() ? "" : between) + word;
    return text;
}

} // namespace zv
