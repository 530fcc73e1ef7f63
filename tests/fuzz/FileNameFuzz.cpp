#include "app/model/FinderPopName.h"
#include "tests/fuzz/Model.h"

using namespace zv;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    auto const text = fuzz::textAt(data, size);
    FinderPopName const name(text);
    auto const prefix = name.orderingPrefix.value_or("");
    fuzz::require(name.sortName == text, "the name is ordered by another one");
    fuzz::require(text.starts_with(prefix), "the prefix is not at the start");
    if (name.isSeparator) {
        fuzz::require(name.title.empty() && !name.hotkey, "a separator says more");
        return 0;
    }
    if (!name.hotkey)
        fuzz::require(prefix + name.title == text, "a name without shortcut lost something");
    else
        fuzz::require(name.title.size() + prefix.size() + sizeof "-*[]*" <= text.size(), "a shortcut was taken from nowhere");
    fuzz::require(FinderPopName(text) == name && hashValue(FinderPopName(text)) == hashValue(name), "the same name says two things");
    return 0;
}
