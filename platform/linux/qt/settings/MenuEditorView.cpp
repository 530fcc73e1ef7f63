#include "platform/linux/qt/settings/MenuEditorView.h"

#include "platform/linux/qt/MenuImages.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMimeData>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

namespace zv {

/// One edit on the undo stack, as the whole menu before and after it.
class MenuEditorView::EditCommand : public QUndoCommand {
public:
    EditCommand(MenuEditor& editor, MenuEdit edit)
        : QUndoCommand(QString::fromStdString(edit.name))
        , m_editor(editor)
        , m_edit(std::move(edit))
    {
    }
    void undo() override { m_editor.restore(m_edit.before); }
    void redo() override
    {
        if (std::exchange(m_isDone, true)) // the stack does what was just done: the store has it already
            m_editor.restore(m_edit.after);
    }

private:
    MenuEditor& m_editor;
    MenuEdit m_edit;
    bool m_isDone = false;
};

/// Drags of our own default to a move; with Control held, or from elsewhere, to a copy.
class MenuEditorView::Outline : public QTreeView {
public:
    explicit Outline(QAbstractItemModel& model)
    {
        setModel(&model);
        setSelectionMode(QAbstractItemView::ExtendedSelection);
        setDragEnabled(true);
        setAcceptDrops(true);
        setDropIndicatorShown(true);
        setDefaultDropAction(Qt::MoveAction);
        setEditTriggers(QAbstractItemView::EditKeyPressed);
        setUniformRowHeights(true);
        setAllColumnsShowFocus(true);
        setIconSize({ menuIconSize, menuIconSize });
        setAccessibleName(QStringLiteral("Menu"));
        header()->setStretchLastSection(false);
        header()->setSectionResizeMode(0, QHeaderView::Stretch);
        header()->setSectionResizeMode(1, QHeaderView::Interactive);
        header()->resizeSection(1, 150);
    }
};

MenuEditorView::MenuEditorView(SettingsModels& models, KeyLookup lookUp)
    : m_models(models)
    , m_tree(models)
    , m_library(new LibraryView(models.palette(), models.icons()))
    , m_outline(new Outline(m_tree))
    , m_inspector(new InspectorView(models, std::move(lookUp)))
{
    auto* line = new QVBoxLayout(this);
    line->setContentsMargins(12, 12, 12, 12);
    auto* columns = new QSplitter;
    columns->setChildrenCollapsible(false);
    columns->addWidget(m_library);
    columns->addWidget(outlineColumn());
    columns->addWidget(inspectorColumn());
    columns->setStretchFactor(1, 1);
    columns->setSizes({ 230, 400, 240 });
    line->addWidget(columns);

    m_library->onAdd = [this](LibraryEntry const& entry) { m_models.editor().addEntry(entry, insertPosition()); };
    m_models.editor().onEdit = [this](MenuEdit const& edit) { edited(edit); };
    connect(&m_tree, &MenuTreeModel::aboutToLayAnew, this, [this] { keepState(); });
    connect(&m_tree, &MenuTreeModel::laidAnew, this, [this] { bringStateBack(); });
    connect(&m_tree, &QAbstractItemModel::dataChanged, this, [this] { refreshInspector(); });
    connect(m_outline->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { refreshInspector(); });
    addShortcuts();
}

MenuEditorView::~MenuEditorView() { m_models.editor().onEdit = nullptr; }

QWidget* MenuEditorView::outlineColumn()
{
    auto* column = new QWidget;
    auto* box = new QVBoxLayout(column);
    box->setContentsMargins(0, 0, 0, 0);
    box->addWidget(m_outline, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(6);
    addButton(*buttons, "File…", "Adds files and applications", [this] { addFiles(FilePanelKind::filesAndFolders); });
    addButton(*buttons, "Folder…", "Adds a folder, which opens as a submenu", [this] { addFiles(FilePanelKind::folder); });
    addButton(*buttons, "Submenu", "Adds an empty submenu", [this] { m_models.editor().addSubmenu(insertPosition()); });
    addButton(*buttons, "Separator", "Adds a line", [this] { m_models.editor().addSeparator(insertPosition()); });
    buttons->addStretch();
    addButton(*buttons, "Remove", "Removes what is selected", [this] { removeSelected(); });
    box->addLayout(buttons);
    return column;
}

QWidget* MenuEditorView::inspectorColumn()
{
    auto* column = new QWidget;
    auto* box = new QVBoxLayout(column);
    box->setContentsMargins(6, 0, 0, 0);
    box->addWidget(m_inspector, 1);
    auto* restore = new QPushButton(QStringLiteral("Restore Default Menu…"));
    restore->setAutoDefault(false);
    connect(restore, &QPushButton::clicked, this, [this] { m_models.menuFile().restoreDefaultMenu(); });
    box->addWidget(restore);
    return column;
}

void MenuEditorView::addButton(QLayout& line, char const* title, char const* help, std::function<void()> act)
{
    auto* button = new QPushButton(QString::fromUtf8(title));
    button->setAutoDefault(false);
    button->setToolTip(QString::fromUtf8(help));
    button->setAccessibleDescription(QString::fromUtf8(help));
    connect(button, &QPushButton::clicked, this, [act = std::move(act)] { act(); });
    line.addWidget(button);
}

void MenuEditorView::addAction(QKeySequence const& keys, std::function<void()> act)
{
    auto* action = new QAction(m_outline);
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, [act = std::move(act)] { act(); });
    m_outline->addAction(action);
}

void MenuEditorView::addShortcuts()
{
    addAction(QKeySequence::Undo, [this] { m_undo.undo(); });
    addAction(QKeySequence::Redo, [this] { m_undo.redo(); });
    addAction(QKeySequence::Delete, [this] { removeSelected(); });
    addAction(QKeySequence::Copy, [this] { copySelected(); });
    addAction(QKeySequence::Cut, [this] {
        copySelected();
        removeSelected();
    });
    addAction(QKeySequence::Paste, [this] { paste(); });
    addAction(QKeySequence(Qt::CTRL | Qt::Key_D), [this] { m_models.editor().duplicate(selection()); });
    addAction(QKeySequence(Qt::ALT | Qt::Key_Up), [this] { m_models.editor().moveUp(selection()); });
    addAction(QKeySequence(Qt::ALT | Qt::Key_Down), [this] { m_models.editor().moveDown(selection()); });
}

std::set<Uuid> MenuEditorView::selection() const
{
    std::set<Uuid> ids;
    for (auto const& index : m_outline->selectionModel()->selectedRows()) {
        if (auto const* item = m_tree.item(index))
            ids.insert(item->id);
    }
    return ids;
}

MenuEditor::Position MenuEditorView::insertPosition() const
{
    auto const current = m_outline->selectionModel()->currentIndex();
    auto const* item = m_tree.item(current);
    bool const isOpen = item && m_outline->isExpanded(current.siblingAtColumn(0));
    return m_models.editor().positionAfter(selection(), isOpen ? std::optional(item->id) : std::nullopt);
}

void MenuEditorView::select(std::set<Uuid> const& ids)
{
    auto* model = m_outline->selectionModel();
    model->clearSelection();
    QModelIndex last;
    for (auto const& id : ids) {
        auto const index = m_tree.indexOf(id);
        if (!index.isValid())
            continue;
        model->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
        last = index;
    }
    if (!last.isValid())
        return;
    model->setCurrentIndex(last, QItemSelectionModel::NoUpdate);
    m_outline->scrollTo(last);
}

void MenuEditorView::addFiles(FilePanelKind kind)
{
    auto const position = insertPosition();
    auto const chosen = m_models.panels().chooseToOpen(kind == FilePanelKind::folder ? "Add Folder" : "Add Files", kind);
    if (!chosen.empty())
        m_models.editor().addFiles(chosen, position);
}

void MenuEditorView::removeSelected() { m_models.editor().remove(selection()); }

void MenuEditorView::copySelected()
{
    if (auto const ids = selection(); !ids.empty())
        QApplication::clipboard()->setMimeData(mimeDataOfRecords(m_models.editor().records(ids)));
}

void MenuEditorView::paste()
{
    if (auto const* data = QApplication::clipboard()->mimeData())
        m_tree.take(*data, Qt::CopyAction, insertPosition());
}

void MenuEditorView::edited(MenuEdit const& edit)
{
    m_keptSelection = edit.selectionAfter;
    m_undo.push(new EditCommand(m_models.editor(), edit));
    // The tree is laid anew in the turn after this one; what is not laid anew is there now.
    QMetaObject::invokeMethod(
        this, [this, ids = edit.selectionAfter] { select(ids); }, Qt::QueuedConnection);
}

void MenuEditorView::keepState()
{
    m_keptSelection = selection();
    m_keptExpanded.clear();
    std::function<void(QModelIndex const&)> const collect = [&](QModelIndex const& parent) {
        for (int row = 0; row < m_tree.rowCount(parent); ++row) {
            auto const index = m_tree.index(row, 0, parent);
            if (!m_outline->isExpanded(index))
                continue;
            if (auto const* item = m_tree.item(index))
                m_keptExpanded.insert(item->id);
            collect(index);
        }
    };
    collect({});
}

void MenuEditorView::bringStateBack()
{
    for (auto const& id : m_keptExpanded)
        m_outline->setExpanded(m_tree.indexOf(id), true);
    select(m_keptSelection);
    refreshInspector();
}

void MenuEditorView::refreshInspector()
{
    auto const rows = m_outline->selectionModel()->selectedRows();
    m_inspector->show(rows.size() == 1 ? m_tree.item(rows.front()) : nullptr, static_cast<std::size_t>(rows.size()));
}

} // namespace zv
