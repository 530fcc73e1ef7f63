#include "app/model/FinderPopName.h"
#include "tests/fuzz/Model.h"

#include <string>

using namespace zv;

namespace {

std::string spelledOut(KeyEquivalentSpec const& spec)
{
    std::string text;
    text += spec.noCommand ? "" : "cmd+";
    text += spec.shift ? "shift+" : "";
    text += spec.option ? "opt+" : "";
    text += spec.control ? "ctrl+" : "";
    return text + spec.trigger.text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    auto const spec = parseShortcutText(fuzz::textAt(data, size));
    if (!spec)
        return 0;
    fuzz::require(parseShortcutText(spelledOut(*spec)) == spec, "spelled out, it is another shortcut");
    fuzz::require(spec->description() == spec->modifierGlyphs() + spec->keyText(), "it is shown otherwise than in its parts");
    auto item = MenuItem::ofKind(MenuItemKind::sleep);
    item.keyEquivalent = spec;
    if (!findUnwritable({ item }))
        fuzz::requireRoundTrips({ item });
    return 0;
}
