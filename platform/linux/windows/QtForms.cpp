#include "platform/linux/windows/QtForms.h"

#include "base/MainThread.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace zv {

namespace {

constexpr int noteWidth = 440;

QString text(std::string const& utf8) { return QString::fromStdString(utf8); }

class FormDialog : public QDialog {
public:
    explicit FormDialog(Form const& form)
        : QDialog(QApplication::activeWindow())
        , m_form(form)
        , m_problem(note({}))
        , m_buttons(new QDialogButtonBox)
    {
        setWindowTitle(text(form.title));
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(16, 16, 16, 16);
        column->setSpacing(12);
        column->addWidget(note(form.note));
        auto* rows = new QFormLayout;
        for (auto const& field : form.fields)
            addRow(*rows, field);
        column->addLayout(rows);
        column->addWidget(m_problem);
        addButtons();
        column->addWidget(m_buttons);
        judge();
    }

    [[nodiscard]] std::vector<FormField> answers() const
    {
        auto fields = m_form.fields;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (auto const* line = qobject_cast<QLineEdit const*>(m_controls[i]))
                fields[i].text = line->text().toStdString();
            else if (auto const* box = qobject_cast<QCheckBox const*>(m_controls[i]))
                fields[i].isOn = box->isChecked();
            else if (auto const* list = qobject_cast<QComboBox const*>(m_controls[i]))
                fields[i].chosen = static_cast<std::size_t>(list->currentIndex());
        }
        return fields;
    }

private:
    static QLabel* note(std::string const& sentence)
    {
        auto* label = new QLabel(text(sentence));
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setFixedWidth(noteWidth);
        return label;
    }

    void addRow(QFormLayout& rows, FormField const& field)
    {
        if (field.kind == FormField::Kind::toggle) {
            auto* box = new QCheckBox(text(field.title));
            box->setChecked(field.isOn);
            rows.addRow(QString(), box);
            m_controls.push_back(box);
            return;
        }
        if (field.kind == FormField::Kind::choice)
            return addChoice(rows, field);
        auto* line = new QLineEdit(text(field.text));
        line->setPlaceholderText(text(field.placeholder));
        line->setAccessibleName(text(field.title));
        connect(line, &QLineEdit::textChanged, this, [this] { judge(); });
        rows.addRow(text(field.title), line);
        m_controls.push_back(line);
    }

    void addChoice(QFormLayout& rows, FormField const& field)
    {
        auto* list = new QComboBox;
        for (auto const& choice : field.choices)
            list->addItem(text(choice));
        list->setCurrentIndex(static_cast<int>(field.chosen));
        list->setAccessibleName(text(field.title));
        rows.addRow(text(field.title), list);
        m_controls.push_back(list);
    }

    void addButtons()
    {
        m_accept = m_buttons->addButton(text(m_form.accept), QDialogButtonBox::AcceptRole);
        m_buttons->addButton(text(m_form.cancel), QDialogButtonBox::RejectRole);
        m_accept->setDefault(true);
        connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    }

    void judge()
    {
        auto const problem = m_form.problem ? m_form.problem(answers()) : std::string();
        m_problem->setText(text(problem));
        m_accept->setEnabled(problem.empty());
    }

    Form const& m_form;
    std::vector<QWidget*> m_controls;
    QLabel* m_problem;
    QDialogButtonBox* m_buttons;
    QPushButton* m_accept = nullptr;
};

} // namespace

std::optional<std::vector<FormField>> QtForms::ask(Form const& form)
{
    assertMainThread();
    FormDialog dialog(form);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.answers()) : std::nullopt;
}

} // namespace zv
