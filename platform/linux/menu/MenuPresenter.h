#pragma once

#include "base/Lifetime.h"
#include "platform/linux/menu/MenuAccessibility.h"
#include "platform/linux/menu/MenuPerformer.h"
#include "platform/linux/menu/MenuPlacer.h"
#include "platform/linux/menu/MenuWindow.h"

#include <QPoint>

#include <memory>

namespace zv {

/// Opens our menus as windows, one tree of them at a time. Main thread only.
class MenuPresenter {
public:
    /// Both outlive it.
    MenuPresenter(MenuPerformer& performer, MenuPlacer& placer);
    ~MenuPresenter();
    MenuPresenter(MenuPresenter const&) = delete;
    MenuPresenter& operator=(MenuPresenter const&) = delete;

    /// Makes the window ahead of the first opening, with the entries of the menu that will be opened first.
    void prepare(std::shared_ptr<Menu> const& menu);
    /// Opens at a point of the desktop in the screens' own pixels, origin at the top left, or at
    /// the pointer; `extra` counts as held in addition to the keyboard's modifiers.
    void open(std::shared_ptr<Menu> const& menu, std::optional<QPoint> pixel, ModifierMask extra = ModifierMask::none);
    /// Opens at the pointer, centred on the screen where there is none, the first entry selected.
    void openByKey(std::shared_ptr<Menu> const& menu);
    void close();
    /// Calls back, once a press elsewhere has closed a menu, with the press's place and the menu.
    void setPressedElsewhere(std::function<void(QPoint, Menu const*)> pressed);
    /// Reads the keyboard for shortcuts in open menus.
    void setKeyReader(std::function<KeyPress(QKeyEvent const&)> readKey) { m_window->readKey = std::move(readKey); }
    [[nodiscard]] bool isOpen() const;
    [[nodiscard]] MenuPlacer& placer() const { return m_placer; }

private:
    void show(std::shared_ptr<Menu> const& menu, QPoint at);
    void closed();

    MenuPerformer& m_performer;
    MenuPlacer& m_placer;
    std::unique_ptr<MenuAccessibleParent> m_accessibleParent;
    MenuWindow* m_window; ///< a child of m_accessibleParent
    Lifetime m_lifetime;
};

} // namespace zv
