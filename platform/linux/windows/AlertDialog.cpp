#include "platform/linux/windows/AlertDialog.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

namespace zv {

namespace {

constexpr int pictureSize = 48;
constexpr int textWidth = 380;
constexpr int longestText = 320;

QString textOf(std::string const& text) { return QString::fromStdString(text); }

/// A label with selectable plain text, as wide as the column and as high as it needs.
QLabel* makeLabel(QString const& text)
{
    auto* const label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setFixedWidth(textWidth);
    label->setMinimumHeight(label->heightForWidth(textWidth));
    return label;
}

/// The accessible object of an alert, with the message as its name.
QAccessibleInterface* accessibleAlert(QString const&, QObject* object)
{
    auto* const dialog = qobject_cast<AlertDialog*>(object);
    return dialog ? new QAccessibleWidget(dialog, QAccessible::AlertMessage) : nullptr;
}

} // namespace

AlertDialog::AlertDialog(Alert const& alert)
    : m_escapeButton(alert.buttons.size() == 1 ? 0 : alert.escapeButton)
    , m_chosen(m_escapeButton)
{
    QAccessible::installFactory(accessibleAlert);
    setWindowTitle(QStringLiteral("Zanthe Vell"));
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::WindowStaysOnTopHint);
    setAccessibleName(textOf(alert.message));
    setAccessibleDescription(textOf(alert.informativeText));

    auto* const row = new QHBoxLayout;
    auto* const picture = new QLabel;
    auto const kind = alert.style == AlertStyle::warning ? QStyle::SP_MessageBoxWarning : QStyle::SP_MessageBoxInformation;
    picture->setPixmap(style()->standardIcon(kind).pixmap(QSize(pictureSize, pictureSize), devicePixelRatio()));
    row->setSpacing(16);
    row->addWidget(picture, 0, Qt::AlignTop);
    auto* const column = new QVBoxLayout;
    column->setSpacing(8);
    addTexts(*column, alert);
    row->addLayout(column);

    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(20, 20, 20, 16);
    all->setSpacing(20);
    all->setSizeConstraint(QLayout::SetFixedSize);
    all->addLayout(row);
    addButtons(*all, alert);
}

void AlertDialog::addTexts(QVBoxLayout& column, Alert const& alert)
{
    auto* const message = makeLabel(textOf(alert.message));
    auto bold = message->font();
    bold.setBold(true);
    message->setFont(bold);
    message->setMinimumHeight(message->heightForWidth(textWidth));
    column.addWidget(message);
    if (!alert.informativeText.empty())
        column.addWidget(informativeWidget(textOf(alert.informativeText)));
    column.addStretch();
}

QWidget* AlertDialog::informativeWidget(QString const& text)
{
    auto* const label = makeLabel(text);
    if (label->minimumHeight() <= longestText)
        return label;
    auto* const scroller = new QScrollArea;
    scroller->setWidget(label);
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroller->setFixedSize(textWidth + style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 4, longestText);
    return scroller;
}

void AlertDialog::addButtons(QVBoxLayout& column, Alert const& alert)
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(8);
    row->addStretch();
    for (std::size_t i = 0; i < alert.buttons.size(); ++i) {
        auto* const button = new QPushButton(textOf(alert.buttons[i]).replace(QLatin1Char('&'), QStringLiteral("&&")));
        button->setAutoDefault(false);
        button->setDefault(i == 0);
        connect(button, &QPushButton::clicked, this, [this, i] {
            m_chosen = i;
            accept();
        });
        row->addWidget(button);
        if (i == 0)
            button->setFocus();
    }
    column.addLayout(row);
}

/// Called for Escape, and for the window's close button.
void AlertDialog::reject()
{
    m_chosen = m_escapeButton;
    QDialog::reject();
}

void AlertDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    raise();
    activateWindow();
    QAccessibleEvent alerted(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alerted);
}

} // namespace zv
