#include "platform/linux/menu/MenuStyle.h"

#include "platform/linux/icons/MenuImages.h"
#include "platform/linux/menu/MenuWindow.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QScreen>
#include <QStyleOptionMenuItem>
#include <QWidget>
#include <qdrawutil.h>

#include <algorithm>
#include <cmath>
#include <utility>

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

/// As the panels' toolkit counts: what is above the baseline and below it, each to whole pixels. Measured in a large
/// size, as a small one's metrics are rounded.
int lineHeight(QFont font)
{
    constexpr int large = 1000;
    auto const dots = QGuiApplication::primaryScreen() ? QGuiApplication::primaryScreen()->logicalDotsPerInchY() : 96;
    auto const pixels = font.pointSizeF() > 0 ? font.pointSizeF() * dots / 72 : font.pixelSize();
    font.setPixelSize(large);
    QFontMetricsF const metrics(font);
    return static_cast<int>(std::ceil(metrics.ascent() * pixels / large) + std::ceil(metrics.descent() * pixels / large));
}

int firstColumnThatDiffers(QImage const& one, QImage const& other)
{
    for (int x = 0; x < one.width(); ++x) {
        for (int y = 0; y < one.height(); ++y) {
            if (one.pixel(x, y) != other.pixel(x, y))
                return x;
        }
    }
    return 0;
}

/// The column's width in a menu of ours; for others QMenu has a use of its own for the field.
int columnEnd(QStyleOptionMenuItem const& item, QWidget const* widget) { return widget && widget->inherits("zv::MenuWindow") ? item.reservedShortcutWidth : 0; }

} // namespace

void MenuStyle::setRows(std::optional<MenuRows> const& rows)
{
    auto const content = rows ? std::max({ lineHeight(QApplication::font("QMenu")), menuIconSize, rows->leastHeight }) : 0;
    m_rowHeight = rows ? content + 2 * rows->padding : 0;
}

QString MenuStyle::shortenedTitle(QString const& title, QFontMetrics const& metrics)
{
    return isShortened(title, metrics) ? metrics.elidedText(title, Qt::ElideMiddle, mostTitleWidth(metrics), Qt::TextShowMnemonic) : title;
}

bool MenuStyle::isShortened(QString const& title, QFontMetrics const& metrics)
{
    return title.size() > shortTitleLength && metrics.size(Qt::TextSingleLine | Qt::TextShowMnemonic, title).width() > mostTitleWidth(metrics);
}

void MenuStyle::color(QStyleOptionMenuItem& item, TextColor const& color)
{
    if (item.state & State_Selected)
        return;
    auto const* style = qobject_cast<QProxyStyle const*>(QApplication::style());
    bool const isBase = style && style->baseStyle()->name() == QLatin1String("fusion"); // as drawPrimitive() has it
    auto const ground = item.palette.color(isBase ? QPalette::Base : QPalette::Window).rgb() & RGB_MASK;
    auto const shown = QColor::fromRgb(readableOn(ground, color));
    for (auto const role : { QPalette::Text, QPalette::WindowText, QPalette::ButtonText })
        item.palette.setColor(role, shown);
}

int MenuStyle::styleHint(StyleHint hint, QStyleOption const* option, QWidget const* widget, QStyleHintReturn* returnData) const
{
    auto const* menu = qobject_cast<MenuWindow const*>(widget);
    switch (hint) {
    case SH_Menu_AllowActiveAndDisabled:
        return menu && menu->selectsDisabled() ? 1 : 0;
    case SH_MenuBar_AltKeyNavigation: // else pressing Alt closes an open menu
        return 0;
    case SH_Menu_Scrollable: // else a long menu takes several columns
    case SH_Menu_SpaceActivatesItem:
        return 1;
    case SH_Menu_SubMenuPopupDelay:
    case SH_Menu_SubMenuSloppyCloseTimeout: // the way to a submenu is the window's own concern
        return submenuDelay;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

int MenuStyle::pixelMetric(PixelMetric metric, QStyleOption const* option, QWidget const* widget) const
{
    switch (metric) {
    case PM_SmallIconSize:
        return menuIconSize;
    case PM_MenuDesktopFrameWidth:
        if (auto const* menu = qobject_cast<MenuWindow const*>(widget); menu && menu->edgeDistance() > 0)
            return menu->edgeDistance();
        return QProxyStyle::pixelMetric(metric, option, widget);
    case PM_MenuVMargin:
        return std::max(3, QProxyStyle::pixelMetric(metric, option, widget));
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize MenuStyle::sizeFromContents(ContentsType type, QStyleOption const* option, QSize const& size, QWidget const* widget) const
{
    auto const* item = type == CT_MenuItem ? qstyleoption_cast<QStyleOptionMenuItem const*>(option) : nullptr;
    return item ? sizeOf(*item, size, widget) : QProxyStyle::sizeFromContents(type, option, size, widget);
}

QSize MenuStyle::sizeOf(QStyleOptionMenuItem const& item, QSize const& titleSize, QWidget const* widget) const
{
    auto const tab = item.text.indexOf(u'\t');
    auto titled = item;
    titled.text = item.text.left(tab);
    titled.reservedShortcutWidth = 0;
    auto const width = std::max(std::min(titleSize.width(), mostTitleWidth(item.fontMetrics)), columnEnd(item, widget));
    auto needed = QProxyStyle::sizeFromContents(CT_MenuItem, &titled, { width, titleSize.height() }, widget);
    if (item.menuItemType == QStyleOptionMenuItem::Separator)
        return needed;
    if (m_rowHeight > 0)
        needed.setHeight(m_rowHeight);
    else
        needed.rheight() += extraHeight;
    if (tab >= 0 && columnEnd(item, widget) == 0)
        needed.rwidth() += columnGap + (widget ? widget->fontMetrics() : item.fontMetrics).horizontalAdvance(item.text.mid(tab + 1));
    return needed;
}

/// Fusion lightens a menu's colour, which is the desktop's own.
void MenuStyle::drawPrimitive(PrimitiveElement element, QStyleOption const* option, QPainter* painter, QWidget const* widget) const
{
    if (element != PE_PanelMenu || baseStyle()->name() != QLatin1String("fusion"))
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    QBrush const background = option->palette.base();
    qDrawPlainRect(painter, option->rect, option->palette.color(QPalette::Window).darker(160), 1, &background);
}

void MenuStyle::drawControl(ControlElement element, QStyleOption const* option, QPainter* painter, QWidget const* widget) const
{
    auto const* item = element == CE_MenuItem ? qstyleoption_cast<QStyleOptionMenuItem const*>(option) : nullptr;
    if (!item)
        return QProxyStyle::drawControl(element, option, painter, widget);
    drawEntry(*item, *painter, widget);
    if ((item->state & State_Selected) && !(item->state & State_Enabled)) // styles show no selection there
        qDrawPlainRect(painter, item->rect, item->palette.color(QPalette::Active, QPalette::Highlight));
}

/// Draws the text behind the tab flush right, as styles differ in where they put it.
void MenuStyle::drawEntry(QStyleOptionMenuItem const& item, QPainter& painter, QWidget const* widget) const
{
    auto const tab = item.text.indexOf(u'\t');
    if (tab < 0)
        return QProxyStyle::drawControl(CE_MenuItem, &item, &painter, widget);
    auto titled = item;
    titled.text = item.text.left(tab);
    titled.reservedShortcutWidth = 0;
    titled.font.setItalic(false); // the column's alone
    QProxyStyle::drawControl(CE_MenuItem, &titled, &painter, widget);
    drawColumnText(item, item.text.mid(tab + 1), painter, widget);
}

QRect MenuStyle::columnOf(QStyleOptionMenuItem const& item, QWidget const* widget) const
{
    if (auto const end = columnEnd(item, widget); end > 0)
        return { item.rect.left() + titleStart(item, widget), item.rect.top(), end, item.rect.height() };
    auto const margin = columnMargin + pixelMetric(PM_MenuHMargin, &item, widget);
    return item.rect.adjusted(margin, 0, -margin, 0);
}

/// The distance from an item's edge to its title, which no style tells: it is looked for in a picture.
int MenuStyle::titleStart(QStyleOptionMenuItem const& item, QWidget const* widget) const
{
    auto const measured = QStringLiteral("%1 %2 %3").arg(item.font.toString()).arg(item.maxIconWidth).arg(item.menuHasCheckableItems);
    if (std::exchange(m_measured, measured) == measured)
        return m_titleStart;
    auto probe = item;
    probe.state = State_Enabled;
    probe.direction = Qt::LeftToRight;
    probe.icon = {};
    probe.checkType = QStyleOptionMenuItem::NotCheckable;
    probe.menuItemType = QStyleOptionMenuItem::Normal;
    probe.reservedShortcutWidth = 0;
    probe.rect = { 0, 0, 300, item.rect.height() };
    auto const drawn = [&](QString const& text) {
        QImage image(probe.rect.size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        probe.text = text;
        QProxyStyle::drawControl(CE_MenuItem, &probe, &painter, widget);
        return image;
    };
    auto const title = QStringLiteral("H");
    m_titleStart = firstColumnThatDiffers(drawn({}), drawn(title)) - item.fontMetrics.leftBearing(title.front());
    return m_titleStart;
}

void MenuStyle::drawColumnText(QStyleOptionMenuItem const& item, QString const& text, QPainter& painter, QWidget const* widget) const
{
    auto const rect = visualRect(item.direction, item.rect, columnOf(item, widget));
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
