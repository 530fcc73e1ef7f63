#include "base/Url.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace zv {

namespace {

constexpr std::string_view filePrefix = "file://";

/// Bytes that a path may hold unencoded.
constexpr std::array<bool, 256> unreserved = [] {
    std::array<bool, 256> table {};
    for (char const c : std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/!$&'()*+,:=@"))
        table[static_cast<unsigned char>(c)] = true;
    return table;
}();

bool isUnreserved(char c) { return unreserved[static_cast<unsigned char>(c)]; }

/// Returns the end of what it has written.
char* putEncoded(char c, char* to)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    if (isUnreserved(c)) {
        *to = c;
        return to + 1;
    }
    auto const byte = static_cast<unsigned char>(c);
    to[0] = '%';
    to[1] = digits[byte >> 4];
    to[2] = digits[byte & 0x0F];
    return to + 3;
}

/// In pieces, each of which is put together on the stack.
void appendPercentEncoded(std::string& text, std::string_view bytes)
{
    static constexpr std::size_t pieceSize = 128;
    std::array<char, pieceSize * 3> encoded; // filled as far as it is appended
    for (; !bytes.empty(); bytes.remove_prefix(std::min(pieceSize, bytes.size()))) {
        auto* end = encoded.data();
        for (char const c : bytes.substr(0, pieceSize))
            end = putEncoded(c, end);
        text.append(encoded.data(), end);
    }
}

int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    auto const lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::string percentDecoded(std::string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (auto percent = text.find('%'); percent != std::string_view::npos; percent = text.find('%')) {
        bytes += text.substr(0, percent);
        text.remove_prefix(percent);
        bool const isEscape = text.size() > 2 && hexValue(text[1]) >= 0 && hexValue(text[2]) >= 0;
        bytes += isEscape ? static_cast<char>(hexValue(text[1]) * 16 + hexValue(text[2])) : '%';
        text.remove_prefix(isEscape ? 3 : 1);
    }
    bytes += text;
    return bytes;
}

bool isSchemeText(std::string_view text)
{
    auto const isSchemeCharacter = [](unsigned char c) { return std::isalnum(c) != 0 || c == '+' || c == '-' || c == '.'; };
    return !text.empty() && std::isalpha(static_cast<unsigned char>(text[0])) != 0 && std::all_of(text.begin(), text.end(), isSchemeCharacter);
}

} // namespace

std::string_view withoutTrailingSlashes(std::string_view path)
{
    while (path.size() > 1 && path.back() == '/')
        path.remove_suffix(1);
    return path;
}

Url Url::fromPath(std::string_view path)
{
    path = withoutTrailingSlashes(path);
    std::string text;
    text.reserve(filePrefix.size() + path.size());
    text += filePrefix;
    appendPercentEncoded(text, path);
    return Url(std::move(text));
}

std::optional<Url> Url::parse(std::string_view text)
{
    auto const colon = text.find(':');
    if (colon == std::string_view::npos || !isSchemeText(text.substr(0, colon)))
        return std::nullopt;
    auto const isForbidden = [](unsigned char c) { return c <= ' ' || c == 0x7F; };
    if (std::any_of(text.begin(), text.end(), isForbidden))
        return std::nullopt;
    return text.starts_with(filePrefix) ? parseFile(text) : Url(std::string(text));
}

std::optional<Url> Url::parseFile(std::string_view text)
{
    auto const rest = text.substr(filePrefix.size());
    auto const host = rest.substr(0, rest.find('/'));
    if (!host.empty() && host != "localhost")
        return Url(std::string(text));
    auto const path = percentDecoded(rest.substr(host.size()));
    return path.find('\0') == std::string::npos ? std::optional(fromPath(path.empty() ? "/" : path)) : std::nullopt;
}

std::string Url::scheme() const
{
    std::string scheme = m_text.substr(0, m_text.find(':'));
    std::transform(scheme.begin(), scheme.end(), scheme.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return scheme;
}

bool Url::isFile() const { return m_text.starts_with(filePrefix) && m_text.compare(filePrefix.size(), 1, "/") == 0; }

std::string Url::path() const
{
    if (!isFile())
        return {};
    return percentDecoded(withoutTrailingSlashes(std::string_view(m_text).substr(filePrefix.size())));
}

std::string Url::lastPathComponent() const { return std::string(zv::lastPathComponent(path())); }

Url Url::appending(std::string_view component) const
{
    component = withoutTrailingSlashes(component);
    if (component.empty() || component == "/")
        return *this;
    std::string text;
    text.reserve(m_text.size() + 1 + component.size());
    text += m_text; // canonical already: only the component needs encoding
    if (!text.ends_with('/'))
        text += '/';
    appendPercentEncoded(text, component);
    return Url(std::move(text));
}

Url Url::parent() const
{
    std::string const full = path();
    auto const slash = full.rfind('/');
    return fromPath(slash == 0 || slash == std::string::npos ? "/" : full.substr(0, slash));
}

std::string_view lastPathComponent(std::string_view path)
{
    path = withoutTrailingSlashes(path);
    if (path == "/")
        return path;
    auto const slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string_view pathExtension(std::string_view name)
{
    auto const dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0)
        return {};
    auto const extension = name.substr(dot + 1);
    bool const isPlain = extension.find_first_of(" /") == std::string_view::npos;
    return isPlain ? extension : std::string_view();
}

std::string_view deletingPathExtension(std::string_view name)
{
    auto const extension = pathExtension(name);
    return extension.empty() ? name : name.substr(0, name.size() - extension.size() - 1);
}

} // namespace zv
