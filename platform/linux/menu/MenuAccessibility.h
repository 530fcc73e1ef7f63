#pragma once

#include <QWidget>

namespace zv {

/// An invisible window that presents our open menus to assistive tools: the toolkit hides pop-up
/// windows from them.
class MenuAccessibleParent : public QWidget {
    Q_OBJECT
public:
    MenuAccessibleParent();
};

} // namespace zv
