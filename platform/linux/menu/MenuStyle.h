#pragma once

#include "app/menu/TextColor.h"

#include <QFontMetrics>
#include <QProxyStyle>

#include <optional>

class QStyleOptionMenuItem;

namespace zv {

/// The heights of a menu's entries, in pixels.
struct MenuRows {
    int padding = 0; ///< above and below what an entry shows
    int leastHeight = 0; ///< of what it shows
};

/// The user's own style with adjustments for our menus. An item's text behind the tab ends
/// `reservedShortcutWidth` pixels after its title's start; at 0, at the menu's edge.
class MenuStyle : public QProxyStyle {
    Q_OBJECT
public:
    using QProxyStyle::QProxyStyle;

    int styleHint(StyleHint hint, QStyleOption const* option, QWidget const* widget, QStyleHintReturn* returnData) const override;
    int pixelMetric(PixelMetric metric, QStyleOption const* option, QWidget const* widget) const override;
    QSize sizeFromContents(ContentsType type, QStyleOption const* option, QSize const& size, QWidget const* widget) const override;
    void drawPrimitive(PrimitiveElement element, QStyleOption const* option, QPainter* painter, QWidget const* widget) const override;
    void drawControl(ControlElement element, QStyleOption const* option, QPainter* painter, QWidget const* widget) const override;

    /// Takes the desktop's heights for entries; without any, the style's own hold.
    void setRows(std::optional<MenuRows> const& rows);

    /// A title that is too wide for a menu is shortened in the middle, so that a file's extension
    /// stays visible.
    [[nodiscard]] static QString shortenedTitle(QString const& title, QFontMetrics const& metrics);
    [[nodiscard]] static bool isShortened(QString const& title, QFontMetrics const& metrics);

    /// Gives the title its colour, as far as it can be read on the menu's ground, also where it cannot be chosen.
    static void color(QStyleOptionMenuItem& item, TextColor const& color);

private:
    [[nodiscard]] QSize sizeOf(QStyleOptionMenuItem const& item, QSize const& titleSize, QWidget const* widget) const;
    void drawEntry(QStyleOptionMenuItem const& item, QPainter& painter, QWidget const* widget) const;
    void drawColumnText(QStyleOptionMenuItem const& item, QString const& text, QPainter& painter, QWidget const* widget) const;
    [[nodiscard]] QRect columnOf(QStyleOptionMenuItem const& item, QWidget const* widget) const;
    [[nodiscard]] int titleStart(QStyleOptionMenuItem const& item, QWidget const* widget) const;

    int m_rowHeight = 0; ///< 0: the style's own
    mutable QString m_measured; ///< what the last title start was measured for
    mutable int m_titleStart = 0;
};

} // namespace zv
