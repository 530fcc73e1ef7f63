#include "app/updates/KresUpdateChannel.h"
#include "app/updates/SignedFeed.h"
#include "app/updates/UpdateChoice.h"
#include "app/updates/VersionOrder.h"
#include "base/Split.h"
#include "platform/linux/text/RtfReader.h"
#include "platform/text/Text.h"
#include "tests/fuzz/Model.h"

#include <tuple>

using namespace zv;

namespace {

void readNotes(std::string_view text)
{
    auto const valid = withValidUtf8(text);
    auto const plain = plainTextOfNotes(valid);
    fuzz::require(isValidUtf8(plain), "notes are no UTF-8");
    fuzz::require(plain.size() <= valid.size(), "notes say more than was written");
}

void readFeed(std::string_view text)
{
    auto const bytes = std::as_bytes(std::span(text));
    if (auto const feed = SignedFeed::read(bytes))
        fuzz::require(feed->content.size() < bytes.size(), "a signature is a part of what it signs");
    auto const items = readAppcast(bytes);
    if (!items)
        return fuzz::require(!items.error().empty() && !items.error().ends_with('.'), "a reason is no part of a sentence");
    for (auto const& item : *items) {
        fuzz::require(isValidUtf8(item.version + item.displayVersion + item.downloadAddress + item.releasePage), "an item is no UTF-8");
        readNotes(item.releaseNotes);
    }
    auto const chosen = chooseUpdate(*items, { "1.0", "linux", "22.04", { "beta" }, { ".deb" }, "1.1" });
    fuzz::require(!chosen || compareVersions(chosen->version, "1.0") > 0, "an older version is offered");
}

/// Three versions, a line each, in an order: of each two, and through the one between.
void readVersions(std::string_view text)
{
    auto lines = split(text, '\n');
    lines.resize(3);
    auto const [a, b, c] = std::tuple(lines[0], lines[1], lines[2]);
    for (auto const& version : lines)
        (void)isPreReleaseVersion(version);
    fuzz::require(compareVersions(a, a) == 0, "a version is not itself");
    fuzz::require(compareVersions(a, b) == 0 <=> compareVersions(b, a), "of two versions both come first");
    if (compareVersions(a, b) <= 0 && compareVersions(b, c) <= 0)
        fuzz::require(compareVersions(a, c) <= 0, "versions go in a circle");
}

void readRichText(std::string_view text)
{
    auto const document = readRtf(std::as_bytes(std::span(text)));
    if (!document)
        return;
    for (auto const& paragraph : document->paragraphs) {
        for (auto const& run : paragraph.runs) {
            fuzz::require(isValidUtf8(run.text) && isValidUtf8(run.link), "a run is no UTF-8");
            fuzz::require(!run.text.empty() && run.size > 0, "a run shows nothing");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    return fuzz::readBy({ readFeed, readNotes, readVersions, readRichText }, fuzz::textAt(data, size));
}
