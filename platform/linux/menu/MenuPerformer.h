#pragma once

#include "base/Lifetime.h"
#include "platform/linux/toolkit/QtModifierKeys.h"
#include "platform/time/Tasks.h"

#include <memory>

namespace zv {

class MenuActionTarget;

/// Performs the chosen entry in a later turn of the loop: by then no menu holds the keyboard, so
/// the action may ask the user. Main thread only.
class MenuPerformer {
public:
    /// Both outlive it.
    MenuPerformer(QtModifierKeys& modifiers, Tasks& tasks)
        : m_modifiers(modifiers)
        , m_tasks(tasks)
    {
    }

    [[nodiscard]] QtModifierKeys& modifiers() { return m_modifiers; }
    void perform(std::shared_ptr<MenuActionTarget> target, Qt::KeyboardModifiers held);
    void later(std::function<void()> work) { m_tasks.runOnMain(std::move(work)); }

private:
    QtModifierKeys& m_modifiers;
    Tasks& m_tasks;
    Lifetime m_lifetime;
};

} // namespace zv
