#include "platform/linux/qt/settings/SettingsPageView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>

namespace zv {

namespace {

QString text(std::string const& utf8) { return QString::fromStdString(utf8); }

} // namespace

/// One control and what it does now: the actions are taken anew whenever the page is shown.
class SettingsPageView::Row : public QObject {
public:
    Row(SettingsRow const& row, QObject* parent)
        : QObject(parent)
        , m_row(row)
    {
        make();
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
    }

private:
    void make()
    {
        switch (m_row.kind) {
        case SettingsRow::Kind::toggle:
            return makeToggle();
        case SettingsRow::Kind::choice:
            return makeChoice();
        case SettingsRow::Kind::button:
            return makeButton();
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
        auto* choices = new QComboBox;
        choices->setAccessibleName(text(m_row.title));
        connect(choices, &QComboBox::activated, this, [this, choices] {
            auto const value = choices->currentData().toLongLong();
            later([value](SettingsRow const& row) { row.choose(value); });
        });
        m_widget = choices;
    }

    void makeButton()
    {
        auto* button = new QPushButton(text(m_row.title));
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this] { later([](SettingsRow const& row) { row.press(); }); });
        m_widget = button;
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

    /// The action may change the page, and with it this row: so it runs in a turn of its own.
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
};

SettingsPageView::SettingsPageView()
{
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

QString SettingsPageView::shapeOf(std::vector<SettingsSection> const& sections)
{
    QString shape;
    for (auto const& section : sections) {
        shape += text(section.title) + QLatin1Char('\n');
        for (auto const& row : section.rows)
            shape += text(row.id) + QString::number(static_cast<int>(row.kind)) + QLatin1Char(' ');
    }
    return shape;
}

void SettingsPageView::show(std::vector<SettingsSection> const& sections)
{
    if (auto const shape = shapeOf(sections); shape != m_shape) {
        m_shape = shape;
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
    auto const scrolled = verticalScrollBar() ? widget() : nullptr;
    auto const position = scrolled ? -scrolled->y() : 0;
    m_rows.clear();
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    auto* form = new QFormLayout;
    form->setHorizontalSpacing(18);
    form->setVerticalSpacing(7);
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    form->setLabelAlignment(Qt::AlignRight);
    form->setFormAlignment(Qt::AlignHCenter | Qt::AlignTop);
    column->setContentsMargins(24, 20, 24, 20);
    column->addLayout(form);
    column->addStretch();
    for (auto const& section : sections)
        addSection(*form, section);
    setWidget(page);
    if (auto* row = m_rows.value(focused))
        row->widget()->setFocus();
    verticalScrollBar()->setValue(position);
}

/// The section's title stands beside its first row, as a form's labels do.
void SettingsPageView::addSection(QFormLayout& form, SettingsSection const& section)
{
    if (form.rowCount() > 0) {
        auto* space = new QWidget;
        space->setFixedHeight(8);
        form.addRow(space);
    }
    auto label = text(section.title) + QLatin1Char(':');
    for (auto const& row : section.rows) {
        addRow(form, row, label);
        label.clear();
    }
}

void SettingsPageView::addRow(QFormLayout& form, SettingsRow const& row, QString const& label)
{
    auto* made = new Row(row, this);
    auto* control = made->widget();
    control->setObjectName(text(row.id));
    m_rows.insert(text(row.id), made);
    auto* field = control;
    bool const isLabelled = row.kind == SettingsRow::Kind::choice;
    if (isLabelled || row.isIndented || row.kind == SettingsRow::Kind::note) {
        field = new QWidget;
        auto* line = new QHBoxLayout(field);
        line->setContentsMargins(row.isIndented ? 22 : 0, 0, 0, 0);
        if (isLabelled) {
            auto* title = new QLabel(text(row.title));
            title->setBuddy(control);
            title->setToolTip(text(row.help));
            line->addWidget(title);
        }
        line->addWidget(control);
        line->addStretch(row.kind == SettingsRow::Kind::note ? 0 : 1);
        if (row.kind == SettingsRow::Kind::note)
            control->setMinimumWidth(420);
    }
    auto* heading = new QLabel(label);
    auto bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    form.addRow(heading, field);
}

} // namespace zv
