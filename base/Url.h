#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zv {

/// A URL, kept as its text. A file URL can name any path: bytes outside the unreserved set are
/// percent-encoded, whether they are UTF-8 or not.
class Url {
public:
    /// `path` is absolute; trailing slashes are dropped, except for the root itself.
    [[nodiscard]] static Url fromPath(std::string_view path);
    /// Needs a scheme ("x:") and no white space or control characters; else empty. So is a file's address with a NUL,
    /// which no path holds; one on another host is no file here.
    [[nodiscard]] static std::optional<Url> parse(std::string_view text);

    [[nodiscard]] std::string const& toString() const { return m_text; }
    [[nodiscard]] std::string scheme() const; ///< lower case, without ":"
    [[nodiscard]] bool isFile() const;
    /// The decoded path bytes, without trailing slash except for "/"; empty when not a file URL.
    [[nodiscard]] std::string path() const;
    /// The path's last component; "/" for the root.
    [[nodiscard]] std::string lastPathComponent() const;
    /// Adds a component; file URLs only.
    [[nodiscard]] Url appending(std::string_view component) const;
    [[nodiscard]] Url parent() const;

    friend bool operator==(Url const&, Url const&) = default;
    // Written out, as not every standard library compares strings three ways.
    friend std::strong_ordering operator<=>(Url const& a, Url const& b) { return a.m_text.compare(b.m_text) <=> 0; }

private:
    [[nodiscard]] static std::optional<Url> parseFile(std::string_view text);

    explicit Url(std::string text)
        : m_text(std::move(text))
    {
    }
    std::string m_text;
};

/// Text after the last "." of a path component: empty for a leading dot only, and when it holds a
/// blank or a slash. ("a.txt" → "txt", ".hidden" → "", "a." → "")
[[nodiscard]] std::string_view pathExtension(std::string_view name);
/// The component without "." and its pathExtension().
[[nodiscard]] std::string_view deletingPathExtension(std::string_view name);
[[nodiscard]] std::string_view lastPathComponent(std::string_view path);
/// Removes trailing slashes; a path of one character stays.
[[nodiscard]] std::string_view withoutTrailingSlashes(std::string_view path);

} // namespace zv

template <> struct std::hash<zv::Url> {
    std::size_t operator()(zv::Url const& url) const noexcept { return std::hash<std::string>()(url.toString()); }
};
