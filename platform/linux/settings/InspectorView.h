#pragma once

#include "app/settings/ItemInspector.h"
#include "app/settings/SettingsModels.h"
#include "platform/linux/settings/PictureRow.h"
#include "platform/linux/settings/RecorderField.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace zv {

/// Edits the selected item; controls that do not apply to it are hidden.
class InspectorView : public QWidget {
public:
    InspectorView(SettingsModels& models, KeyLookup lookUp);

    /// Null for no selection; `count` is the number of selected items.
    void show(MenuItem const* item, std::size_t count);
    /// Called to show another item of the menu.
    std::function<void(Uuid const&)> onShowItem;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildForm(KeyLookup lookUp);
    void buildShortcutNote();
    void takeTitle();
    void fill(InspectorFields const& fields);
    void setRowVisible(QWidget* field, bool isVisible);

    SettingsModels& m_models;
    std::optional<Uuid> m_id;
    QLabel* m_heading;
    QWidget* m_body;
    QFormLayout* m_form;
    QLineEdit* m_title;
    QTimer m_pause; ///< pause after typing in the title
    QWidget* m_targetRow;
    QLabel* m_target;
    QPushButton* m_choose;
    PictureRow* m_picture;
    QComboBox* m_depth;
    QPushButton* m_listing;
    RecorderField* m_shortcut;
    QWidget* m_shortcutNoteRow;
    QLabel* m_shortcutNote;
    QPushButton* m_showOwner;
    std::optional<Uuid> m_shortcutOwner;
    QCheckBox* m_hidden;
    QLabel* m_note;
};

} // namespace zv
