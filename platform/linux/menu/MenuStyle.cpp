#include "platform/linux/menu/MenuStyle.h"

#include "platform/linux/icons/MenuImages.h"

#include <QPainter>
#include <QStyleOptionMenuItem>
#include <QWidget>

#include <algorithm>

namespace zv {

namespace {

constexpr int submenuDelay = 60; // milliseconds: long enough to pass over an entry, too short to notice
constexpr int columnMargin = 16; // the width of a submenu's arrow, which the column clears
constexpr int columnGap = 12; // between a title and its column
constexpr int extraHeight = 2;
constexpr int mostTitleLines = 28; // maximum width of a title, in heights of its line
constexpr int shortTitleLength = 30; // characters that no font makes too wide
constexpr double columnOpacity = 0.6; // dimmer than the titles, which are read first

int mostTitleWidth(QFontMetrics const& metrics) { return mostTitleLines * metrics.height(); }

} // namespace

QString MenuStyle::shortenedTitle(QString const& title, QFontMetrics const& metrics)
{
    return isShortened(title, metrics) ? metrics.elidedText(title, Qt::ElideMiddle, mostTitleWidth(metrics), Qt::TextShowMnemonic) : title;
}

bool MenuStyle::isShortened(QString const& title, QFontMetrics const& metrics)
{
    return title.size() > shortTitleLength && metrics.size(Qt::TextSingleLine | Qt::TextShowMnemonic, title).width() > mostTitleWidth(metrics);
}

int MenuStyle::styleHint(StyleHint hint, QStyleOption const* option, QWidget const* widget, QStyleHintReturn* returnData) const
{
    switch (hint) {
    case SH_MenuBar_AltKeyNavigation: // else pressing Alt closes an open menu
        return 0;
    case SH_Menu_Scrollable: // else a long menu takes several columns
        return 1;
    case SH_Menu_SubMenuPopupDelay:
        return submenuDelay;
    case SH_Menu_SloppySubMenus:
        return 1;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

int MenuStyle::pixelMetric(PixelMetric metric, QStyleOption const* option, QWidget const* widget) const
{
    switch (metric) {
    case PM_SmallIconSize:
        return menuIconSize;
    case PM_MenuVMargin:
        return std::max(3, QProxyStyle::pixelMetric(metric, option, widget));
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize MenuStyle::sizeFromContents(ContentsType type, QStyleOption const* option, QSize const& size, QWidget const* widget) const
{
    auto const* item = type == CT_MenuItem ? qstyleoption_cast<QStyleOptionMenuItem const*>(option) : nullptr;
    auto const width = item ? std::min(size.width(), mostTitleWidth(item->fontMetrics)) : size.width();
    auto needed = QProxyStyle::sizeFromContents(type, option, { width, size.height() }, widget);
    if (!item || item->menuItemType == QStyleOptionMenuItem::Separator)
        return needed;
    needed.rheight() += extraHeight;
    if (auto const tab = item->text.indexOf(u'\t'); tab >= 0)
        needed.rwidth() += columnGap + (widget ? widget->fontMetrics() : item->fontMetrics).horizontalAdvance(item->text.mid(tab + 1));
    return needed;
}

/// Draws the text behind the tab flush right, as styles differ in where they put it.
void MenuStyle::drawControl(ControlElement element, QStyleOption const* option, QPainter* painter, QWidget const* widget) const
{
    auto const* item = element == CE_MenuItem ? qstyleoption_cast<QStyleOptionMenuItem const*>(option) : nullptr;
    auto const tab = item ? item->text.indexOf(u'\t') : -1;
    if (tab < 0) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    auto titled = *item;
    titled.text = item->text.left(tab);
    titled.font.setItalic(false); // the column's alone
    QProxyStyle::drawControl(element, &titled, painter, widget);
    drawColumnText(*item, item->text.mid(tab + 1), *painter, widget);
}

void MenuStyle::drawColumnText(QStyleOptionMenuItem const& item, QString const& text, QPainter& painter, QWidget const* widget) const
{
    auto const margin = columnMargin + pixelMetric(PM_MenuHMargin, &item, widget);
    auto const rect = visualRect(item.direction, item.rect, item.rect.adjusted(margin, 0, -margin, 0));
    bool const isEnabled = item.state & State_Enabled;
    bool const isSelected = item.state & State_Selected;
    painter.save();
    auto font = widget ? widget->font() : item.font;
    font.setItalic(item.font.italic());
    painter.setFont(font);
    painter.setLayoutDirection(Qt::LeftToRight); // "Ctrl+E" reads left to right in every language
    painter.setOpacity(isEnabled ? columnOpacity : columnOpacity / 2);
    painter.setPen(item.palette.color(isSelected && isEnabled ? QPalette::HighlightedText : QPalette::WindowText));
    painter.drawText(rect, static_cast<int>(visualAlignment(item.direction, Qt::AlignRight)) | Qt::AlignVCenter | Qt::TextSingleLine, text);
    painter.restore();
}

} // namespace zv
