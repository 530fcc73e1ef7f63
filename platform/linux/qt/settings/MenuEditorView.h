#pragma once

#include "app/settings/SettingsModels.h"
#include "platform/linux/qt/settings/InspectorView.h"
#include "platform/linux/qt/settings/LibraryView.h"
#include "platform/linux/qt/settings/MenuTreeModel.h"

#include <QTreeView>
#include <QUndoStack>
#include <QWidget>

#include <set>

namespace zv {

/// The Menu tab: the library, the outline, the inspector.
class MenuEditorView : public QWidget {
public:
    MenuEditorView(SettingsModels& models, KeyLookup lookUp);
    ~MenuEditorView() override;

private:
    class Outline;
    class EditCommand;

    [[nodiscard]] QWidget* outlineColumn();
    [[nodiscard]] QWidget* inspectorColumn();
    void addButton(QLayout& line, char const* title, char const* help, std::function<void()> act);
    void addShortcuts();
    void addAction(QKeySequence const& keys, std::function<void()> act);

    [[nodiscard]] std::set<Uuid> selection() const;
    [[nodiscard]] MenuEditor::Position insertPosition() const;
    void select(std::set<Uuid> const& ids);
    void addFiles(FilePanelKind kind);
    void removeSelected();
    void copySelected();
    void paste();
    void keepState();
    void bringStateBack();
    void refreshInspector();
    void edited(MenuEdit const& edit);

    SettingsModels& m_models;
    MenuTreeModel m_tree;
    QUndoStack m_undo;
    LibraryView* m_library;
    QTreeView* m_outline;
    InspectorView* m_inspector;
    std::set<Uuid> m_keptSelection;
    std::set<Uuid> m_keptExpanded;
};

} // namespace zv
