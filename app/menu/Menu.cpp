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

std::shared_ptr<MenuDelegate> Menu::answering() const { return keyDelegate.expired() ? delegate.lock() : keyDelegate.lock(); }

std::shared_ptr<MenuActionTarget> Menu::targetForKey(KeyPress const& press) const
{
    auto const asked = answering();
    return asked ? asked->targetForKey(*this, press) : nullptr;
}

std::shared_ptr<MenuSearch> Menu::searchBelow(Menu const& start) const
{
    auto const asked = answering();
    return asked ? asked->searchBelow(start) : nullptr;
}

void Menu::didRefill() const
{
    if (onRefilled)
        onRefilled();
}

} // namespace zv
