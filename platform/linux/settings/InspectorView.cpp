#include "platform/linux/settings/InspectorView.h"

#include "app/settings/SettingsTexts.h"
#include "platform/linux/settings/SettingsButton.h"
#include "platform/linux/settings/ShownText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace zv {

namespace {

constexpr std::chrono::milliseconds pauseInTyping { 800 };
constexpr int longestListing = 180;

QLabel* smallLabel()
{
    auto* label = new QLabel;
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

InspectorView::InspectorView(SettingsModels& models, KeyLookup lookUp)
    : m_models(models)
    , m_heading(smallLabel())
    , m_body(new QWidget)
    , m_form(new QFormLayout(m_body))
    , m_title(new QLineEdit)
    , m_targetRow(new QWidget)
    , m_target(smallLabel())
    , m_choose(settingsButton(text(settingsTexts::choose.title)))
    , m_picture(new PictureRow(models))
    , m_depth(new QComboBox)
    , m_listing(new QPushButton)
    , m_shortcut(nullptr)
    , m_shortcutNoteRow(new QWidget)
    , m_shortcutNote(smallLabel())
    , m_showOwner(settingsButton(text(settingsTexts::showOwner.title)))
    , m_hidden(new QCheckBox(text(settingsTexts::hidden)))
    , m_note(smallLabel())
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto bold = m_heading->font();
    bold.setBold(true);
    m_heading->setFont(bold);
    column->addWidget(m_heading);
    column->addWidget(m_body);
    column->addStretch();
    buildForm(std::move(lookUp));
    show(nullptr, 0);
}

void InspectorView::buildForm(KeyLookup lookUp)
{
    m_form->setContentsMargins(0, 0, 0, 0);
    m_form->setRowWrapPolicy(QFormLayout::WrapAllRows);
    m_shortcut = new RecorderField(m_models, std::move(lookUp));
    auto* target = new QVBoxLayout(m_targetRow);
    target->setContentsMargins(0, 0, 0, 0);
    auto* choose = m_choose;
    auto* reveal = settingsButton(text(settingsTexts::reveal.title));
    choose->setToolTip(text(settingsTexts::choose.help));
    reveal->setToolTip(text(settingsTexts::reveal.help));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(choose);
    buttons->addWidget(reveal);
    buttons->addStretch();
    target->addWidget(m_target);
    target->addLayout(buttons);

    m_form->addRow(text(settingsTexts::title), m_title);
    m_form->addRow(text(settingsTexts::target), m_targetRow);
    m_form->addRow(text(m_models.pictures().texts().picture), m_picture);
    m_form->addRow(text(m_models.wording().depth), m_depth);
    m_listing->setAutoDefault(false);
    m_listing->setToolTip(text(settingsTexts::listingHelp));
    m_listing->setAccessibleDescription(text(settingsTexts::listingHelp));
    m_form->addRow(text(settingsTexts::listing), m_listing);
    connect(m_listing, &QPushButton::clicked, this, [this] {
        if (m_id)
            m_models.chooseListing(*m_id);
    });
    m_form->addRow(text(settingsTexts::shortcut), m_shortcut);
    buildShortcutNote();
    m_form->addRow(m_shortcutNoteRow);
    m_form->addRow(m_hidden);
    m_form->addRow(m_note);

    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseInTyping);
    m_title->installEventFilter(this);
    connect(&m_pause, &QTimer::timeout, this, [this] { takeTitle(); });
    connect(m_title, &QLineEdit::textEdited, &m_pause, qOverload<>(&QTimer::start));
    connect(m_title, &QLineEdit::editingFinished, this, [this] { takeTitle(); });
    connect(choose, &QPushButton::clicked, this, [this] {
        if (m_id)
            m_models.chooseTarget(*m_id);
    });
    connect(reveal, &QPushButton::clicked, this, [this] {
        if (m_id)
            m_models.reveal(*m_id);
    });
    connect(m_depth, &QComboBox::currentIndexChanged, this, [this] {
        if (m_id)
            m_models.editor().setScanDepth(*m_id, depthOfChoice(m_depth->currentData().toLongLong()));
    });
    connect(m_hidden, &QCheckBox::toggled, this, [this](bool on) {
        if (m_id)
            m_models.editor().setHidden(*m_id, on);
    });
    m_shortcut->onChange = [this](auto const& spec) {
        if (m_id)
            m_models.editor().setKeyEquivalent(*m_id, spec);
    };
}

void InspectorView::buildShortcutNote()
{
    auto* line = new QVBoxLayout(m_shortcutNoteRow);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_shortcutNote);
    line->addWidget(m_showOwner, 0, Qt::AlignLeading);
    m_showOwner->setToolTip(text(settingsTexts::showOwner.help));
    m_showOwner->setAccessibleDescription(text(settingsTexts::showOwner.help));
    connect(m_showOwner, &QPushButton::clicked, this, [this] {
        if (m_shortcutOwner && onShowItem)
            onShowItem(Uuid(*m_shortcutOwner));
    });
}

void InspectorView::show(MenuItem const* item, std::size_t count)
{
    // A title being typed belongs to the item shown until now.
    if (!item || item->id != m_id)
        takeTitle();
    m_id = item && count == 1 ? std::optional(item->id) : std::nullopt;
    m_body->setVisible(m_id.has_value());
    if (!m_id) {
        m_heading->setText(text(settingsTexts::selected(count)));
        return;
    }
    auto const fields = m_models.inspectorFieldsOf(*item);
    fill(fields);
    m_picture->show(*item, fields);
}

void InspectorView::fill(InspectorFields const& fields)
{
    m_heading->setText(text(fields.kindTitle));
    if (!m_title->isModified() && m_title->text() != text(fields.title))
        m_title->setText(text(fields.title));
    m_title->setPlaceholderText(text(fields.titlePlaceholder));
    setRowVisible(m_title, fields.hasTitle);

    m_target->setText(text(fields.targetPath));
    m_choose->setText(text(fields.chooseTitle));
    setRowVisible(m_targetRow, fields.hasTarget);
    setRowVisible(m_picture, fields.hasPicture);

    QSignalBlocker const quietDepth(m_depth);
    m_depth->clear();
    for (auto const& choice : fields.depthChoices)
        m_depth->addItem(text(choice.title), QVariant::fromValue<qlonglong>(choice.value));
    m_depth->setCurrentIndex(m_depth->findData(QVariant::fromValue<qlonglong>(fields.depthChoice())));
    setRowVisible(m_depth, fields.hasDepth);

    m_listing->setText(m_listing->fontMetrics().elidedText(text(fields.listing), Qt::ElideRight, longestListing));
    m_listing->setAccessibleName(text(settingsTexts::withValue(settingsTexts::listing, fields.listing)));
    setRowVisible(m_listing, fields.hasListing);
    m_shortcut->setSpec(fields.shortcut);
    setRowVisible(m_shortcut, fields.hasShortcut);
    m_shortcutOwner = fields.shortcutOwner;
    m_shortcutNote->setText(text(fields.shortcutNote));
    m_showOwner->setVisible(fields.shortcutOwner.has_value());
    setRowVisible(m_shortcutNoteRow, !fields.shortcutNote.empty());
    QSignalBlocker const quietHidden(m_hidden);
    m_hidden->setChecked(fields.isHidden);
    m_note->setText(text(fields.note));
    m_note->setVisible(!fields.note.empty());
}

void InspectorView::setRowVisible(QWidget* field, bool isVisible) { m_form->setRowVisible(field, isVisible); }

void InspectorView::takeTitle()
{
    m_pause.stop();
    if (!m_id || !m_title->isModified())
        return;
    m_title->setModified(false);
    m_models.editor().setTitle(*m_id, m_title->text().toStdString());
}

/// Ends editing when the window is left or closed, which the field does not notice.
bool InspectorView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut || event->type() == QEvent::Hide)
        takeTitle();
    return QWidget::eventFilter(watched, event);
}

} // namespace zv
