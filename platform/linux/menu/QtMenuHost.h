#pragma once

#include "platform/linux/menu/MenuPresenter.h"
#include "platform/menubar/MenuHost.h"

namespace zv {

/// Pops menus up through the presenter, which outlives it.
class QtMenuHost : public MenuHost {
public:
    explicit QtMenuHost(MenuPresenter& presenter)
        : m_presenter(presenter)
    {
    }
    void popUp(std::shared_ptr<Menu> const& menu, Point at) override;
    void popUpByKey(std::shared_ptr<Menu> const& menu) override;

private:
    MenuPresenter& m_presenter;
};

} // namespace zv
