#include "platform/linux/apps/RecentlyUsedFile.h"

#include <gio/gio.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace zv {

namespace {

constexpr int deepestElement = 64; // a bookmark's own elements end at seven

std::string_view withoutPrefix(std::string_view name)
{
    auto const colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

struct Attributes {
    gchar const** names;
    gchar const** values;

    [[nodiscard]] std::string operator[](std::string_view wanted) const
    {
        for (std::size_t i = 0; names[i]; ++i) {
            if (wanted == names[i])
                return values[i];
        }
        return {};
    }
};

/// The state of a parse: the bookmark that is being read.
struct Reading {
    std::function<void(RecentlyUsed&&)> const& take;
    RecentlyUsed current;
    bool isInBookmark = false;
    int depth = 0;

    void begin(std::string_view element, Attributes const& attributes)
    {
        if (element == "bookmark") {
            current = { attributes["href"], secondsOfTimestamp(attributes["visited"]), {}, false, {} };
            isInBookmark = true;
        }
        if (!isInBookmark)
            return;
        auto const name = withoutPrefix(element);
        if (name == "mime-type")
            current.mimeType = attributes["type"];
        if (name == "private")
            current.isPrivate = true;
        if (name == "application")
            addApplication(attributes);
    }
    void addApplication(Attributes const& attributes)
    {
        auto const modified = secondsOfTimestamp(attributes["modified"]);
        // Older lists store seconds.
        auto const lastUsed = modified > 0 ? modified : g_ascii_strtoll(attributes["timestamp"].c_str(), nullptr, 10);
        current.applications.push_back({ attributes["name"], attributes["exec"], lastUsed });
    }
    void end(std::string_view element)
    {
        if (element != "bookmark" || !std::exchange(isInBookmark, false))
            return;
        take(std::move(current));
    }
};

void onBegin(GMarkupParseContext*, gchar const* element, gchar const** names, gchar const** values, gpointer user, GError** error)
{
    auto& reading = *static_cast<Reading*>(user);
    if (++reading.depth > deepestElement) {
        g_set_error_literal(error, G_MARKUP_ERROR, G_MARKUP_ERROR_INVALID_CONTENT, "nested too deep");
        return;
    }
    reading.begin(element, { names, values });
}

void onEnd(GMarkupParseContext*, gchar const* element, gpointer user, GError**)
{
    auto& reading = *static_cast<Reading*>(user);
    --reading.depth;
    reading.end(element);
}

constexpr GMarkupParser callbacks { onBegin, onEnd, nullptr, nullptr, nullptr };

} // namespace

std::int64_t secondsOfTimestamp(std::string const& text)
{
    if (text.empty())
        return 0;
    auto* const time = g_date_time_new_from_iso8601(text.c_str(), nullptr);
    if (!time)
        return 0;
    auto const seconds = g_date_time_to_unix(time);
    g_date_time_unref(time);
    return std::max<std::int64_t>(seconds, 0);
}

FileReading readRecentlyUsed(std::string const& path, std::function<void(RecentlyUsed&&)> const& take)
{
    Reading state { take, {} };
    auto* const context = g_markup_parse_context_new(&callbacks, G_MARKUP_PREFIX_ERROR_POSITION, &state, nullptr);
    auto const reading = readInPieces(path,
        [context](std::string_view piece) { return g_markup_parse_context_parse(context, piece.data(), static_cast<gssize>(piece.size()), nullptr) != FALSE; });
    g_markup_parse_context_free(context);
    return reading;
}

} // namespace zv
