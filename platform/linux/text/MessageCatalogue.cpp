#include "platform/linux/text/MessageCatalogue.h"

#include "base/Translation.h"
#include "platform/text/NumberText.h"

#include <clocale>
#include <libintl.h>
#include <unistd.h>

namespace zv {

namespace {

constexpr char const* domain = "zanthe-vell";

// Between context and key: https://www.gnu.org/software/gettext/manual/html_node/MO-Files.html
constexpr char endOfContext = '\4';

/// The C library answers with the key itself where it has no translation.
std::string unlessSame(char const* translated, char const* key) { return translated == key ? std::string() : std::string(translated); }

std::string fromCatalogue(Sentence const& sentence, char const* many, unsigned long count)
{
    if (many) {
        char const* const translated = ::dngettext(domain, sentence.english, many, count);
        return translated == many ? std::string() : unlessSame(translated, sentence.english);
    }
    if (!sentence.context)
        return unlessSame(::dgettext(domain, sentence.english), sentence.english);
    auto const key = sentence.context + (endOfContext + std::string(sentence.english));
    return unlessSame(::dgettext(domain, key.c_str()), key.c_str());
}

} // namespace

void useMessageCatalogue(std::vector<std::string> const& folders)
{
    for (auto const& folder : folders) {
        if (::access(folder.c_str(), R_OK | X_OK) != 0)
            continue;
        std::setlocale(LC_MESSAGES, "");
        ::bindtextdomain(domain, folder.c_str());
        ::bind_textdomain_codeset(domain, "UTF-8");
        translateBy(fromCatalogue, localizedNumber);
        return;
    }
}

} // namespace zv
