#include "app/menu/Menu.h"

#include "base/MainThread.h"

namespace zv {

MenuEntry MenuEntry::separator()
{
    MenuEntry entry;
    entry.type = Type::separator;
    return entry;
}

MenuEntry MenuEntry::disabled(std::string title)
{
    MenuEntry entry;
    entry.title = std::move(title);
    entry.enabled = false;
    return entry;
}

void Menu::needsUpdate()
{
    assertMainThread();
    if (auto const asked = delegate.lock())
        asked->menuNeedsUpdate(*this);
}

void Menu::didClose()
{
    assertMainThread();
    if (auto const told = delegate.lock())
        told->menuDidClose(*this);
}

std::shared_ptr<MenuActionTarget> Menu::targetForKey(KeyPress const& press) const
{
    auto const asked = keyDelegate.expired() ? delegate.lock() : keyDelegate.lock();
    return asked ? asked->targetForKey(*this, press) : nullptr;
}

void Menu::didRefill() const
{
    if (onRefilled)
        onRefilled();
}

} // namespace zv
