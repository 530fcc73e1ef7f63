#include "platform/linux/updates/QtUpdateWindow.h"

#include "platform/linux/icons/LaurelIcon.h"

#include <QCursor>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QIcon>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace zv {

class QtUpdateWindow::Dialog : public QDialog {
public:
    explicit Dialog(QtUpdateWindow& owner)
        : m_owner(owner)
    {
        setWindowTitle(QStringLiteral("Zanthe Vell"));
        auto* grid = new QHBoxLayout(this);
        grid->setSpacing(16);
        auto* icon = new QLabel;
        icon->setPixmap(laurelApplicationIcon().pixmap(48));
        grid->addWidget(icon, 0, Qt::AlignTop);
        auto* column = new QVBoxLayout;
        grid->addLayout(column, 1);

        auto bold = font();
        bold.setBold(true);
        // Feed texts are never markup.
        m_title.setTextFormat(Qt::PlainText);
        m_message.setTextFormat(Qt::PlainText);
        m_title.setFont(bold);
        m_title.setWordWrap(true);
        m_message.setWordWrap(true);
        m_message.setMinimumWidth(380);
        m_notes.setReadOnly(true);
        m_notes.setMinimumHeight(160);
        for (QWidget* widget : { static_cast<QWidget*>(&m_title), static_cast<QWidget*>(&m_message), static_cast<QWidget*>(&m_notes),
                 static_cast<QWidget*>(&m_progress), static_cast<QWidget*>(&m_buttons) })
            column->addWidget(widget);
    }

    void setPage(UpdatePage const& page)
    {
        auto const known = size(); // what the page needs may resize the window at once
        m_escapeButton = page.escapeButton;
        m_title.setText(QString::fromStdString(page.title));
        m_message.setText(QString::fromStdString(page.message));
        m_message.setVisible(!page.message.empty());
        m_notes.setAccessibleName(QString::fromStdString(page.notesName));
        setNotes(QString::fromStdString(page.notes));
        setProgress(page.progress);
        setButtons(page.buttons);
        if (isVisible())
            growFrom(known);
        else
            adjustSize();
    }

    /// Appears where it was; at first, and where that screen has gone, in the middle of the screen in use.
    void appear()
    {
        if (isVisible())
            return;
        auto const* const screen = QGuiApplication::screenAt(QCursor::pos());
        auto const free = (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
        if (m_size)
            resize(m_size->expandedTo(sizeHint()));
        bool const isOnScreen = m_place && QGuiApplication::screenAt(*m_place + QPoint(width() / 2, 0));
        move(isOnScreen ? *m_place : free.center() - QPoint(width() / 2, height() / 2));
        show();
    }

    void reject() override { press(m_escapeButton); }

protected:
    void hideEvent(QHideEvent* event) override
    {
        m_place = pos();
        m_size = size();
        QDialog::hideEvent(event);
    }

private:
    /// Grows about its middle, within the screen; a page that needs less leaves the size that the user knows.
    void growFrom(QSize known)
    {
        auto const added = size().expandedTo(known).expandedTo(sizeHint()) - known;
        if (added.isNull())
            return;
        auto const free = screen()->availableGeometry();
        auto const whole = frameGeometry().size() - size() + known + added;
        auto const wanted = pos() - QPoint(added.width() / 2, added.height() / 2);
        resize(known + added);
        move(std::clamp(wanted.x(), free.left(), std::max(free.left(), free.right() + 1 - whole.width())),
            std::clamp(wanted.y(), free.top(), std::max(free.top(), free.bottom() + 1 - whole.height())));
    }

    void setNotes(QString const& notes)
    {
        m_notes.setVisible(!notes.isEmpty());
        if (m_notes.toPlainText() != notes)
            m_notes.setPlainText(notes);
    }

    void setProgress(std::optional<double> fraction)
    {
        m_progress.setVisible(fraction.has_value());
        bool const isKnown = fraction && *fraction >= 0;
        m_progress.setRange(0, isKnown ? 1000 : 0);
        if (isKnown)
            m_progress.setValue(static_cast<int>(*fraction * 1000));
    }

    /// Replaces the buttons only when they differ: an update of the progress bar keeps the focus.
    void setButtons(std::vector<std::string> const& titles)
    {
        if (titles == m_titles)
            return;
        m_titles = titles;
        m_buttons.clear();
        for (std::size_t i = 0; i < titles.size(); ++i) {
            auto* button = m_buttons.addButton(QString::fromStdString(titles[i]), i == 0 ? QDialogButtonBox::AcceptRole : QDialogButtonBox::ActionRole);
            button->setDefault(i == 0);
            connect(button, &QPushButton::clicked, this, [this, i] { press(i); });
        }
    }

    void press(std::size_t button)
    {
        auto const told = m_owner.onButton; // a copy, as the call may close this window
        if (told)
            told(button);
    }

    QtUpdateWindow& m_owner;
    QLabel m_title;
    QLabel m_message;
    QPlainTextEdit m_notes;
    QProgressBar m_progress;
    QDialogButtonBox m_buttons;
    std::vector<std::string> m_titles;
    std::size_t m_escapeButton = 0;
    std::optional<QPoint> m_place; ///< where it was when it went
    std::optional<QSize> m_size;
};

QtUpdateWindow::QtUpdateWindow() = default;
QtUpdateWindow::~QtUpdateWindow() = default;

void QtUpdateWindow::show(UpdatePage const& page)
{
    if (!m_dialog)
        m_dialog = std::make_unique<Dialog>(*this);
    m_dialog->setPage(page);
    m_dialog->appear();
}

void QtUpdateWindow::bringToFront()
{
    if (!m_dialog)
        return;
    m_dialog->raise();
    m_dialog->activateWindow();
}

void QtUpdateWindow::close()
{
    if (m_dialog)
        m_dialog->hide();
}

} // namespace zv
