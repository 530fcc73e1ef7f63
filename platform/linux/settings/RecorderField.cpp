#include "platform/linux/settings/RecorderField.h"

#include "app/settings/RecorderRules.h"
#include "app/settings/SettingsTexts.h"
#include "platform/linux/menu/ShortcutText.h"
#include "platform/linux/settings/ShownText.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>

namespace zv {

QString readableShortcut(KeyEquivalentSpec const& spec) { return shortcutKeysOfGlyphs(spec.description()).text(); }

RecorderField::RecorderField(SettingsModels& models, KeyLookup lookUp)
    : m_models(models)
    , m_lookUp(std::move(lookUp))
    , m_field(new QPushButton)
    , m_clear(new QPushButton(text(settingsTexts::clear)))
{
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_field, 1);
    line->addWidget(m_clear);

    m_field->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_field->setMinimumWidth(static_cast<int>(minimumRecorderWidth));
    m_field->setAutoDefault(false);
    m_field->setToolTip(text(settingsTexts::recorderHelp));
    m_field->setAccessibleDescription(text(settingsTexts::recorderHelp));
    m_field->installEventFilter(this);
    m_clear->setFlat(true);
    m_clear->setAutoDefault(false);
    m_clear->setAccessibleName(text(settingsTexts::clearShortcut));
    connect(m_field, &QPushButton::clicked, this, [this] { setRecording(!m_isRecording); });
    connect(m_clear, &QPushButton::clicked, this, [this] {
        setRecording(false);
        if (onChange)
            onChange(std::nullopt);
    });
    setFocusProxy(m_field);
    refresh();
}

RecorderField::~RecorderField() { m_models.endRecording(); }

void RecorderField::setSpec(std::optional<KeyEquivalentSpec> const& spec)
{
    m_spec = spec;
    refresh();
}

void RecorderField::setRecording(bool isRecording)
{
    m_isRecording = isRecording;
    if (isRecording) {
        m_field->setFocus(); // who presses by other means than the pointer and keys gives it none
        m_models.beginRecording();
    } else {
        m_models.endRecording();
    }
    refresh();
}

void RecorderField::refresh()
{
    m_field->setDown(m_isRecording);
    m_clear->setEnabled(m_spec.has_value());
    if (m_isRecording)
        m_field->setText(text(settingsTexts::recording));
    else
        m_field->setText(m_spec ? readableShortcut(*m_spec) : text(settingsTexts::noShortcut));
    m_field->setAccessibleName(text(settingsTexts::withValue(settingsTexts::recorder, m_field->text().toStdString())));
}

bool RecorderField::eventFilter(QObject* watched, QEvent* event)
{
    if (!m_isRecording)
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::ShortcutOverride: // before any menu or button takes the combination
        event->accept();
        return true;
    case QEvent::KeyPress:
        keyPressed(static_cast<QKeyEvent const&>(*event));
        return true;
    case QEvent::KeyRelease:
        return true;
    case QEvent::FocusOut:
        setRecording(false);
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void RecorderField::keyPressed(QKeyEvent const& event)
{
    auto const outcome = recorderOutcome(keyPressOf(event, m_lookUp));
    if (outcome.kind == RecorderOutcome::Kind::ignored)
        return;
    setRecording(false);
    if (outcome.kind == RecorderOutcome::Kind::captured && onChange)
        onChange(outcome.spec);
}

} // namespace zv
