#pragma once

#include <QFontMetrics>
#include <QProxyStyle>

class QStyleOptionMenuItem;

namespace zv {

/// The user's own style with adjustments for our menus.
class MenuStyle : public QProxyStyle {
    Q_OBJECT
public:
    using QProxyStyle::QProxyStyle;

    int styleHint(StyleHint hint, QStyleOption const* option, QWidget const* widget, QStyleHintReturn* returnData) const override;
    int pixelMetric(PixelMetric metric, QStyleOption const* option, QWidget const* widget) const override;
    QSize sizeFromContents(ContentsType type, QStyleOption const* option, QSize const& size, QWidget const* widget) const override;
    void drawControl(ControlElement element, QStyleOption const* option, QPainter* painter, QWidget const* widget) const override;

    /// A title that is too wide for a menu is shortened in the middle, so that a file's extension
    /// stays visible.
    [[nodiscard]] static QString shortenedTitle(QString const& title, QFontMetrics const& metrics);
    [[nodiscard]] static bool isShortened(QString const& title, QFontMetrics const& metrics);

private:
    void drawColumnText(QStyleOptionMenuItem const& item, QString const& text, QPainter& painter, QWidget const* widget) const;
};

} // namespace zv
