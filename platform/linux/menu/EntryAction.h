#pragma once

#include "platform/desk/Image.h"

#include <QAction>
#include <QFontMetrics>

#include <memory>

namespace zv {

class MenuActionTarget;
struct MenuEntry;

/// Stands for an entry in a menu window, for another one each time the menu opens. What is as
/// it was the last time is left untouched, so that a menu that did not change need not be
/// laid out anew.
class EntryAction : public QAction {
public:
    using QAction::QAction;

    /// `metrics` of the menu's font. The submenu is the window's to give.
    void show(MenuEntry const& entry, QFontMetrics const& metrics);
    /// Lets go of what choosing it needs; its looks stay.
    void release();

    /// The picture was not at hand when the entry was shown: a blank one of its size stands there.
    [[nodiscard]] bool awaitsIcon() const { return m_awaited != nullptr; }
    void fetchIcon();

    [[nodiscard]] std::shared_ptr<MenuActionTarget> const& target() const { return m_target; }
    /// Of its key equivalent, as the menu shows them.
    [[nodiscard]] QString const& keys() const { return m_keys; }
    /// What stands at the right of its title.
    [[nodiscard]] QString column() const { return data().toString(); }

private:
    void showText(MenuEntry const& entry, QFontMetrics const& metrics);
    void showIcon(ImageRef const& image);
    void setIconIfOther(QIcon const& icon);

    std::shared_ptr<MenuActionTarget> m_target;
    std::shared_ptr<void> m_represented;
    ImageRef m_awaited;
    QString m_keys;
    bool m_isShortened = false; ///< the title, which is then the tool tip
};

} // namespace zv
