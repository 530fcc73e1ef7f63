#pragma once

#include <QWidget>

namespace zv {

/// An invisible window that assistive tools find our open menus under: the toolkit leaves
/// pop-up windows out of what the program shows them.
class MenuAccessibleParent : public QWidget {
    Q_OBJECT
public:
    MenuAccessibleParent();
};

} // namespace zv
