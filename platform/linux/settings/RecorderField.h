#pragma once

#include "app/model/KeyEquivalentSpec.h"
#include "app/settings/SettingsModels.h"
#include "platform/linux/hotkeys/RecordedKeys.h"

#include <QWidget>

#include <functional>
#include <optional>

class QPushButton;

namespace zv {

/// Shows a shortcut, and after a click takes the next key press for a new one.
class RecorderField : public QWidget {
public:
    RecorderField(SettingsModels& models, KeyLookup lookUp);
    ~RecorderField() override;

    void setSpec(std::optional<KeyEquivalentSpec> const& spec);
    /// The user recorded another one, or cleared it.
    std::function<void(std::optional<KeyEquivalentSpec> const&)> onChange;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setRecording(bool isRecording);
    void keyPressed(QKeyEvent const& event);
    void refresh();

    SettingsModels& m_models;
    KeyLookup m_lookUp;
    QPushButton* m_field;
    QPushButton* m_clear;
    std::optional<KeyEquivalentSpec> m_spec;
    bool m_isRecording = false;
};

/// How people read a shortcut here: "Ctrl+Alt+E".
[[nodiscard]] QString readableShortcut(KeyEquivalentSpec const& spec);

} // namespace zv
