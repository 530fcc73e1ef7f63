#pragma once

#include "app/settings/SettingsModels.h"
#include "app/settings/SettingsTexts.h"
#include "platform/linux/settings/InspectorView.h"
#include "platform/linux/settings/LibraryView.h"
#include "platform/linux/settings/MenuTreeModel.h"

#include <QTreeView>
#include <QUndoStack>
#include <QWidget>

#include <set>

class QPushButton;
class QSplitter;

namespace zv {

/// The Menu tab: the library, the outline, the inspector.
class MenuEditorView : public QWidget {
public:
    MenuEditorView(SettingsModels& models, KeyLookup lookUp);
    ~MenuEditorView() override;

    /// Selects the item, and brings it into sight.
    void showItem(Uuid const& item);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    class Outline;
    class EditCommand;

    [[nodiscard]] QWidget* outlineColumn();
    [[nodiscard]] QWidget* inspectorColumn();
    QPushButton* addButton(QLayout& line, settingsTexts::Button const& texts, std::function<void()> act);
    void addActions();
    void addUndoActions();
    QAction* addAction(Sentence const& title, QList<QKeySequence> const& keys, std::function<void()> act);
    void addGap();

    [[nodiscard]] std::set<Uuid> selection() const;
    [[nodiscard]] MenuEditor::Position insertPosition() const;
    void select(std::set<Uuid> const& ids);
    void selectionChanged();
    void addEntry(LibraryEntry const& entry);
    void addFiles(FilePanelKind kind);
    void tell(DropOutcome const& outcome);
    void removeSelected();
    void copySelected();
    void paste();
    void keepState();
    void bringStateBack();
    void refreshInspector();
    void edited(MenuEdit const& edit);
    void selectLater(std::set<Uuid> ids);
    void enablePaste();

    SettingsModels& m_models;
    MenuTreeModel m_tree;
    QUndoStack m_undo;
    LibraryView* m_library;
    QSplitter* m_menuSide = nullptr;
    QTreeView* m_outline;
    InspectorView* m_inspector;
    QList<QAction*> m_selectionActions; ///< enabled only with a selection
    QAction* m_paste = nullptr;
    QAction* m_up = nullptr;
    QAction* m_down = nullptr;
    QPushButton* m_remove = nullptr;
    std::set<Uuid> m_keptSelection;
    std::set<Uuid> m_keptExpanded;
};

} // namespace zv
