#include "platform/linux/menu/MenuPerformer.h"

#include "app/menu/Menu.h"

namespace zv {

void MenuPerformer::perform(std::shared_ptr<MenuActionTarget> target, Qt::KeyboardModifiers held)
{
    m_tasks.runOnMain(m_lifetime.guard([this, target = std::move(target), held] {
        m_modifiers.setChoosingWith(QtModifierKeys::standInsFor(held));
        target->invoke();
        m_modifiers.setChoosingWith(ModifierMask::none);
    }));
}

} // namespace zv
