#pragma once

#include "app/model/KeyEquivalentSpec.h"
#include "app/settings/SettingsModels.h"
#include "platform/linux/hotkeys/RecordedKeys.h"

#include <QWidget>

#include <functional>
#include <optional>

class QPushButton;

namespace zv {

/// Shows a shortcut; after a click it records the next key press.
class RecorderField : public QWidget {
public:
    RecorderField(SettingsModels& models, KeyLookup lookUp);
    ~RecorderField() override;

    void setSpec(std::optional<KeyEquivalentSpec> const& spec);
    /// Called when the user has recorded a shortcut, or cleared it.
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

/// The shortcut in this desktop's notation: "Ctrl+Alt+E".
[[nodiscard]] QString readableShortcut(KeyEquivalentSpec const& spec);

} // namespace zv
