#pragma once

#include "app/menu/TextColor.h"
#include "platform/desk/Image.h"

#include <QAction>
#include <QFontMetrics>

#include <memory>
#include <optional>

namespace zv {

class MenuActionTarget;
struct EntryWay;
struct MenuEntry;

/// An entry of a menu window, another one each time the menu opens. Unchanged properties are left
/// untouched, so that an unchanged menu need not be laid out again.
class EntryAction : public QAction {
public:
    using QAction::QAction;

    /// `metrics` of the menu's font. The submenu is set by the window.
    void show(MenuEntry const& entry, QFontMetrics const& metrics);
    /// Releases the target and the represented object; the looks stay.
    void release();

    /// Whether a blank picture stands in for one that was not ready when the entry was shown.
    [[nodiscard]] bool awaitsIcon() const { return m_awaited != nullptr; }
    void fetchIcon();

    [[nodiscard]] std::shared_ptr<MenuActionTarget> const& target() const { return m_target; }
    /// The text at the right of the title: its shortcut, or the way to an entry that was found.
    [[nodiscard]] QString column() const { return data().toString(); }
    /// The way to an entry that was found, for those who hear it; empty for others.
    [[nodiscard]] QString const& spokenWay() const { return m_spokenWay; }
    /// The colour of the title, where it has one of its own.
    [[nodiscard]] std::optional<TextColor> const& color() const { return m_color; }
    /// Where the column ends, in pixels from the title's start; 0 for the menu's edge.
    [[nodiscard]] int columnEnd() const { return m_columnEnd; }

private:
    void showText(MenuEntry const& entry, QFontMetrics const& metrics);
    void showWay(EntryWay const& way, QFontMetrics const& metrics);
    void showIcon(ImageRef const& image);
    void showColor(std::optional<TextColor> const& color);
    void setIconIfOther(QIcon const& icon);

    std::shared_ptr<MenuActionTarget> m_target;
    std::shared_ptr<void> m_represented;
    ImageRef m_awaited;
    std::optional<TextColor> m_color;
    int m_columnEnd = 0;
    QString m_spokenWay;
    bool m_isShortened = false; ///< the title was cut, and the whole is the tool tip
};

} // namespace zv
