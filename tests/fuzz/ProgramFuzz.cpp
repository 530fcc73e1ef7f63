#include "app/shell/ProgramMessage.h"
#include "platform/linux/files/LinuxBookmarks.h"
#include "platform/text/Text.h"
#include "tests/fuzz/Model.h"

using namespace zv;

namespace {

void readDragRecord(std::string_view text)
{
    auto const item = menuItemFromDragRecord(text);
    if (!item)
        return fuzz::require(!item.error().description().empty(), "a failure without a reason");
    fuzz::require(!findUnwritable({ *item }), "a dragged item cannot be stored");
    fuzz::requireRoundTrips({ *item });
}

void readMessage(std::string_view text)
{
    if (auto const request = decodedRequest(text)) {
        auto const again = decodedRequest(encoded(*request));
        fuzz::require(again && again->kind == request->kind && again->files == request->files, "a request is sent as another");
        fuzz::require(again->at.has_value() == request->at.has_value() && encoded(*again) == encoded(*request), "a request is sent to another place");
    }
    if (auto const answer = decodedAnswer(text))
        fuzz::require(encoded(*decodedAnswer(encoded(*answer))) == encoded(*answer), "an answer is sent as another");
}

void readBookmark(std::string_view text)
{
    static LinuxBookmarks const bookmarks;
    auto const* const bytes = reinterpret_cast<std::byte const*>(text.data());
    auto const found = bookmarks.resolve({ bytes, bytes + text.size() });
    auto const anew = found ? bookmarks.create(found->url) : std::nullopt;
    if (anew)
        fuzz::require(bookmarks.resolve(*anew).value().url == found->url, "a file's own bookmark leads elsewhere");
}

void requireParts(Url const& file)
{
    auto const path = file.path();
    fuzz::require(path.starts_with('/') && path.find('\0') == std::string::npos, "a file without a path");
    fuzz::require(path == "/" || !path.ends_with('/'), "a path ends in a slash");
    fuzz::require(Url::fromPath(path) == file, "a path has two addresses");
    if (path.find("//") == std::string::npos)
        fuzz::require(file.parent().appending(file.lastPathComponent()) == file, "a file is not in its folder");
}

void readUrl(std::string_view text)
{
    auto const url = Url::parse(text);
    if (url) {
        fuzz::require(Url::parse(url->toString()) == url, "an address reads as another one");
        fuzz::require(!url->scheme().empty(), "an address without a scheme");
    }
    if (url && url->isFile())
        requireParts(*url);
    if (text.find('\0') == std::string_view::npos)
        requireParts(Url::fromPath("/" + std::string(text)));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    return fuzz::readBy({ readDragRecord, readMessage, readBookmark, readUrl }, fuzz::textAt(data, size));
}
