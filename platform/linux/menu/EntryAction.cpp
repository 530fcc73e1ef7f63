#include "platform/linux/menu/EntryAction.h"

#include "app/menu/Menu.h"
#include "platform/linux/icons/MenuImages.h"
#include "platform/linux/menu/MenuStyle.h"
#include "platform/linux/menu/ShortcutText.h"

#include <QActionEvent>
#include <QCoreApplication>
#include <QFont>
#include <QGuiApplication>
#include <QTextDocument>

#include <cmath>
#include <utility>

namespace zv {

namespace {

constexpr QChar rightToLeftIsolate = u'\u2067';
constexpr QChar closedIsolate = u'\u2069';
constexpr int mostWayLines = 16; // maximum width of a way, in heights of its line

/// The title with "&" doubled, so that it is shown.
QString actionText(MenuEntry const& entry)
{
    auto text = QString::fromStdString(entry.visibleTitle());
    return text.replace(u'&', QLatin1String("&&")).replace(u'\t', u' ').replace(u'\n', u' ');
}

/// The tool tip as plain text, whatever a file's name looks like.
QString toolTipText(std::string const& toolTip)
{
    auto const text = QString::fromStdString(toolTip);
    return Qt::mightBeRichText(text) ? QLatin1String("<qt>") + text.toHtmlEscaped() : text;
}

/// The font for the entry's state; the menu's own font decides the rest. Of an entry with a column it is the column's.
QFont fontOf(MenuEntry const& entry)
{
    QFont font;
    if (entry.attributedTitle && (entry.attributedTitle->italic || entry.attributedTitle->hintIsItalic))
        font.setItalic(true);
    return font;
}

} // namespace

void EntryAction::show(MenuEntry const& entry, QFontMetrics const& metrics)
{
    m_target = entry.target;
    m_represented = entry.representedObject;
    m_awaited = nullptr;
    setSeparator(entry.type == MenuEntry::Type::separator);
    setVisible(true);
    setEnabled(entry.enabled);
    setCheckable(entry.isMarked);
    setChecked(entry.isMarked);
    showText(entry, metrics);
    showIcon(entry.image);
    showColor(entry.color);
}

/// Tells the window of a change, as the toolkit does of what it knows.
void EntryAction::showColor(std::optional<TextColor> const& color)
{
    if (std::exchange(m_color, color) == color || !parent())
        return;
    QActionEvent changed(QEvent::ActionChanged, this);
    QCoreApplication::sendEvent(parent(), &changed);
}

void EntryAction::showText(MenuEntry const& entry, QFontMetrics const& metrics)
{
    if (auto const title = actionText(entry); title != text()) {
        setText(title);
        m_isShortened = MenuStyle::isShortened(title, metrics);
    }
    bool const explainsItself = entry.toolTip.empty() && !m_isShortened;
    setToolTip(explainsItself ? QString() : toolTipText(entry.toolTip.empty() ? entry.visibleTitle() : entry.toolTip));
    if (auto const wanted = fontOf(entry); font() != wanted)
        setFont(wanted);
    bool const isHint = entry.keyEquivalent.empty() && entry.attributedTitle;
    m_columnEnd = isHint ? static_cast<int>(std::ceil(entry.attributedTitle->hintTab)) : 0;
    if (auto const keys = columnKeysOf(entry).text(); keys != column())
        setData(keys); // kept out of the text, which assistive tools read out as the entry's name
    m_spokenWay.clear();
    if (entry.way)
        showWay(*entry.way, metrics);
}

/// Shows the way from the right to the left where the menu is read so.
void EntryAction::showWay(EntryWay const& way, QFontMetrics const& metrics)
{
    m_spokenWay = QString::fromStdString(way.spoken);
    auto text = QString::fromStdString(way.text);
    if (QGuiApplication::isRightToLeft())
        text = rightToLeftIsolate + text.replace(u'▸', u'◂') + closedIsolate;
    setData(metrics.elidedText(text, Qt::ElideMiddle, mostWayLines * metrics.height()));
}

void EntryAction::showIcon(ImageRef const& image)
{
    if (!image)
        setIconIfOther({});
    else if (isMenuIconReady(image))
        setIconIfOther(menuIconOf(image));
    else {
        m_awaited = image;
        setIconIfOther(blankMenuIcon());
    }
}

void EntryAction::fetchIcon()
{
    setIconIfOther(menuIconOf(m_awaited));
    m_awaited = nullptr;
}

void EntryAction::release()
{
    m_target = nullptr;
    m_represented = nullptr;
    m_awaited = nullptr;
}

void EntryAction::setIconIfOther(QIcon const& icon)
{
    if (this->icon().cacheKey() != icon.cacheKey())
        setIcon(icon);
}

} // namespace zv
