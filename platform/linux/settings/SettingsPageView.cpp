#include "platform/linux/settings/SettingsPageView.h"

#include "platform/linux/settings/RecorderField.h"
#include "platform/linux/settings/SettingsButton.h"
#include "platform/linux/settings/ShownText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace zv {

namespace {

constexpr int indentation = 22;
constexpr int widthOfNotes = 440;
constexpr int mostButtonsBeside = 3;
constexpr int widthForTitlesBeside = 720;

/// A list of choices that leaves the wheel to the page.
class Choices : public QComboBox {
protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

QLabel* headingLabel(QString const& title)
{
    auto* heading = new QLabel(title);
    auto bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    if (title.isEmpty())
        heading->setFixedHeight(0); // above its row it would be a gap
    return heading;
}

/// Whether the title stands before the control, which does not show it itself.
bool hasTitleBefore(SettingsRow const& row) { return row.kind == SettingsRow::Kind::choice || row.kind == SettingsRow::Kind::shortcut; }

/// The control in a line of its own, behind the title of a choice.
QWidget* fieldOf(SettingsRow const& row, QWidget* control, QList<QLabel*>& titles)
{
    auto* field = new QWidget;
    auto* line = new QHBoxLayout(field);
    line->setContentsMargins(0, 0, 0, 0);
    if (row.isIndented)
        line->addSpacing(indentation); // a margin would stay on the left where the language is written from the right
    if (hasTitleBefore(row)) {
        auto* title = new QLabel(text(row.title));
        title->setBuddy(control);
        title->setToolTip(text(row.help));
        line->addWidget(title);
        titles.push_back(title);
    }
    line->addWidget(control);
    if (row.kind == SettingsRow::Kind::note)
        control->setFixedWidth(widthOfNotes);
    else
        line->addStretch();
    return field;
}

/// Gives the titles, and the controls behind them, equal widths.
void alignWidths(QList<QLabel*> const& titles)
{
    int width = 0, choicesWidth = 0;
    for (auto const* title : titles) {
        width = std::max(width, title->sizeHint().width());
        choicesWidth = std::max(choicesWidth, title->buddy()->sizeHint().width());
    }
    for (auto* title : titles) {
        title->setMinimumWidth(width);
        title->buddy()->setMinimumWidth(choicesWidth);
    }
}

} // namespace

/// A control and its current actions, which are replaced whenever the page is shown.
class SettingsPageView::Row : public QObject {
public:
    Row(SettingsRow const& row, MakeRecorder const& makeRecorder)
        : m_row(row)
    {
        make(makeRecorder);
        setParent(m_widget);
        take(row);
    }

    [[nodiscard]] QWidget* widget() const { return m_widget; }

    void take(SettingsRow const& row)
    {
        m_row = row;
        QSignalBlocker const quiet(m_widget);
        m_widget->setEnabled(row.isEnabled);
        m_widget->setToolTip(text(row.help));
        m_widget->setAccessibleDescription(text(row.help));
        if (auto* box = qobject_cast<QCheckBox*>(m_widget))
            box->setChecked(row.isOn);
        else if (auto* choices = qobject_cast<QComboBox*>(m_widget))
            fill(*choices);
        else if (auto* label = qobject_cast<QLabel*>(m_widget))
            label->setText(text(row.title));
        else if (row.kind == SettingsRow::Kind::pullDown)
            offer();
        else if (auto* recorder = dynamic_cast<RecorderField*>(m_widget))
            recorder->setSpec(row.shortcut);
    }

private:
    void make(MakeRecorder const& makeRecorder)
    {
        switch (m_row.kind) {
        case SettingsRow::Kind::toggle:
            return makeToggle();
        case SettingsRow::Kind::choice:
            return makeChoice();
        case SettingsRow::Kind::shortcut:
            return takeRecorder(makeRecorder());
        case SettingsRow::Kind::button:
            return makeButton();
        case SettingsRow::Kind::pullDown:
            return makePullDown();
        case SettingsRow::Kind::note:
            return makeNote();
        }
    }

    void makeToggle()
    {
        auto* box = new QCheckBox(text(m_row.title));
        connect(box, &QCheckBox::toggled, this, [this](bool on) { later([on](SettingsRow const& row) { row.toggle(on); }); });
        m_widget = box;
    }

    void makeChoice()
    {
        auto* choices = new Choices;
        choices->setAccessibleName(text(m_row.title));
        // The index's change, as choosing by typing is not reported as an activation.
        connect(choices, &QComboBox::currentIndexChanged, this, [this, choices] {
            auto const value = choices->currentData().toLongLong();
            later([value](SettingsRow const& row) { row.choose(value); });
        });
        m_widget = choices;
    }

    void takeRecorder(RecorderField* recorder)
    {
        recorder->onChange = [this](auto const& spec) { later([spec](SettingsRow const& row) { row.record(spec); }); };
        m_widget = recorder;
    }

    void makeButton()
    {
        auto* button = settingsButton(text(m_row.title));
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        connect(button, &QPushButton::clicked, this, [this] { later([](SettingsRow const& row) { row.press(); }); });
        m_widget = button;
    }

    void makePullDown()
    {
        auto* button = settingsButton(text(m_row.title));
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        m_menu = new QMenu(button);
        // Not the button's own menu, which would keep assistive programs waiting until it is closed.
        connect(button, &QPushButton::clicked, this, [this, button] {
            auto const left = button->isRightToLeft() ? button->width() - m_menu->sizeHint().width() : 0;
            m_menu->popup(button->mapToGlobal(QPoint(left, button->height())));
        });
        m_widget = button;
    }

    void offer()
    {
        m_menu->clear();
        for (auto const& choice : m_row.choices) {
            m_menu->addAction(text(choice.title), this, [this, value = choice.value] { later([value](SettingsRow const& row) { row.choose(value); }); });
        }
    }

    void makeNote()
    {
        auto* label = new QLabel;
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        auto font = label->font();
        font.setPointSizeF(font.pointSizeF() * 0.92);
        label->setFont(font);
        label->setForegroundRole(QPalette::PlaceholderText);
        m_widget = label;
    }

    /// Runs the action in a later turn, as it may change the page, and with it this row.
    void later(std::function<void(SettingsRow const&)> action)
    {
        QMetaObject::invokeMethod(
            this,
            [this, action = std::move(action)] {
                auto const row = m_row;
                action(row);
            },
            Qt::QueuedConnection);
    }

    void fill(QComboBox& choices)
    {
        bool isSame = choices.count() == static_cast<int>(m_row.choices.size());
        for (int i = 0; isSame && i < choices.count(); ++i)
            isSame = choices.itemText(i) == text(m_row.choices[static_cast<std::size_t>(i)].title);
        if (!isSame) {
            choices.clear();
            for (auto const& choice : m_row.choices)
                choices.addItem(text(choice.title), QVariant::fromValue<qlonglong>(choice.value));
        }
        choices.setCurrentIndex(choices.findData(QVariant::fromValue<qlonglong>(m_row.value)));
    }

    SettingsRow m_row;
    QWidget* m_widget = nullptr;
    QMenu* m_menu = nullptr; ///< of a button that pulls down
};

SettingsPageView::SettingsPageView(MakeRecorder makeRecorder)
    : m_makeRecorder(std::move(makeRecorder))
{
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
}

void SettingsPageView::show(std::vector<SettingsSection> const& sections)
{
    if (auto shape = shapeOf(sections); shape != m_shape) {
        m_shape = std::move(shape);
        build(sections);
        return;
    }
    for (auto const& section : sections) {
        for (auto const& row : section.rows)
            m_rows.value(text(row.id))->take(row);
    }
}

void SettingsPageView::build(std::vector<SettingsSection> const& sections)
{
    auto const focused = QString(focusWidget() ? focusWidget()->objectName() : QString());
    auto const position = verticalScrollBar()->value();
    m_rows.clear();
    auto* page = new QWidget;
    auto* form = new QFormLayout;
    form->setHorizontalSpacing(18);
    form->setVerticalSpacing(7);
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    form->setLabelAlignment(Qt::AlignRight);
    for (auto const& section : sections)
        addSection(*form, section);
    m_form = form;
    wrapTitles();
    // A column as wide as it needs, in the middle of the page.
    auto* line = new QHBoxLayout(page);
    line->setContentsMargins(24, 20, 24, 20);
    line->addStretch();
    line->addLayout(form);
    line->addStretch();
    setWidget(page);
    page->setAutoFillBackground(false);
    if (auto* row = m_rows.value(focused))
        row->widget()->setFocus();
    verticalScrollBar()->setValue(position);
}

/// Puts the sections' titles above their rows where there is no room beside them.
void SettingsPageView::wrapTitles()
{
    if (m_form)
        m_form->setRowWrapPolicy(width() < widthForTitlesBeside ? QFormLayout::WrapAllRows : QFormLayout::DontWrapRows);
}

void SettingsPageView::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    wrapTitles();
}

/// The section's title stands beside its first line, as a form's labels do.
void SettingsPageView::addSection(QFormLayout& form, SettingsSection const& section)
{
    if (form.rowCount() > 0) {
        auto* space = new QWidget;
        space->setFixedHeight(8);
        form.addRow(space);
    }
    auto label = text(section.heading());
    auto const add = [&](QWidget* field) { form.addRow(headingLabel(std::exchange(label, {})), field); };
    QList<QLabel*> titles;
    QBoxLayout* buttons = nullptr;
    for (auto const& row : section.rows) {
        auto* control = makeRow(row);
        if (row.kind != SettingsRow::Kind::button) {
            buttons = nullptr;
            add(fieldOf(row, control, titles));
        } else if (buttons && buttons->count() <= mostButtonsBeside) { // the stretch behind them counts, too
            buttons->insertWidget(buttons->count() - 1, control);
        } else {
            auto* field = fieldOf(row, control, titles);
            buttons = static_cast<QBoxLayout*>(field->layout());
            add(field);
        }
    }
    alignWidths(titles);
}

QWidget* SettingsPageView::makeRow(SettingsRow const& row)
{
    auto* made = new Row(row, m_makeRecorder);
    m_rows.insert(text(row.id), made);
    made->widget()->setObjectName(text(row.id));
    return made->widget();
}

} // namespace zv
