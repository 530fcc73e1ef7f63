#include "platform/linux/settings/MenuEditorView.h"

#include "platform/linux/icons/MenuImages.h"
#include "platform/linux/settings/EmptyText.h"
#include "platform/linux/settings/FlowLayout.h"
#include "platform/linux/settings/GalleryView.h"
#include "platform/linux/settings/SettingsButton.h"
#include "platform/linux/settings/ShownText.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace zv {

namespace {

constexpr int undoLimit = 200;
constexpr int widthOfThreeColumns = 840;
constexpr int narrowestLibrary = 210, widestLibrary = 270;
constexpr int widestInspector = 320;

/// Scrolls down alone: it is as wide as its content, whatever the language.
class WholeWidthArea : public QScrollArea {
public:
    [[nodiscard]] QSize minimumSizeHint() const override
    {
        auto const bar = verticalScrollBar()->isVisible() ? verticalScrollBar()->width() : 0;
        auto const whole = std::min(widget()->minimumSizeHint().width() + bar, widestInspector);
        return QScrollArea::minimumSizeHint().expandedTo({ whole, 0 });
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::LayoutRequest)
            updateGeometry();
        return QScrollArea::eventFilter(watched, event);
    }
};

/// Joins consecutive rows into one range each, as a selection of many ranges is slow. Sorts the
/// rows.
QItemSelection stretchesOf(QModelIndexList& rows)
{
    auto const key = [](QModelIndex const& index) { return std::pair(index.parent().internalId(), index.row()); };
    std::sort(rows.begin(), rows.end(), [&](auto const& a, auto const& b) { return key(a) < key(b); });
    QItemSelection selection;
    for (qsizetype first = 0; first < rows.size();) {
        auto last = first;
        while (last + 1 < rows.size() && rows[last + 1].row() == rows[last].row() + 1 && rows[last + 1].parent() == rows[first].parent())
            ++last;
        selection.append(QItemSelectionRange(rows[first], rows[last]));
        first = last + 1;
    }
    return selection;
}

} // namespace

/// An edit on the undo stack.
class MenuEditorView::EditCommand : public QUndoCommand {
public:
    /// `onDone` is told what to select.
    EditCommand(MenuEditor& editor, MenuEdit edit, std::function<void(std::set<Uuid> const&)> onDone)
        : QUndoCommand(QString::fromStdString(edit.name))
        , m_editor(editor)
        , m_edit(std::move(edit))
        , m_onDone(std::move(onDone))
    {
    }
    void undo() override { m_onDone(m_editor.undo(m_edit)); }
    void redo() override
    {
        if (std::exchange(m_isDone, true)) // the first call comes from the stack, when the store has the edit already
            m_onDone(m_editor.redo(m_edit));
    }

private:
    MenuEditor& m_editor;
    MenuEdit m_edit;
    std::function<void(std::set<Uuid> const&)> m_onDone;
    bool m_isDone = false;
};

/// Our own drags default to a move; with Control held, or from elsewhere, to a copy. A drag's
/// source is never told of a move, as it might remove the item.
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
        setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::DoubleClicked);
        setExpandsOnDoubleClick(false);
        setContextMenuPolicy(Qt::ActionsContextMenu);
        setUniformRowHeights(true);
        setAllColumnsShowFocus(true);
        setIconSize({ menuIconSize, menuIconSize });
        setAccessibleName(text(settingsTexts::outline));
        header()->setStretchLastSection(false);
        header()->setSectionResizeMode(0, QHeaderView::Stretch);
        header()->setSectionResizeMode(1, QHeaderView::Interactive);
        header()->resizeSection(1, 150);
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QTreeView::paintEvent(event);
        if (model()->rowCount() == 0)
            paintEmptyText(*this, settingsTexts::emptyMenu);
    }
    void dragMoveEvent(QDragMoveEvent* event) override
    {
        QTreeView::dragMoveEvent(event);
        copyFromElsewhere(*event);
    }
    void dropEvent(QDropEvent* event) override
    {
        QTreeView::dropEvent(event);
        copyFromElsewhere(*event);
    }

private:
    static void copyFromElsewhere(QDropEvent& event)
    {
        bool const isOurs = event.source() != nullptr;
        if (isOurs || !event.isAccepted() || !event.possibleActions().testFlag(Qt::CopyAction))
            return;
        event.setDropAction(Qt::CopyAction);
        event.accept();
    }
};

MenuEditorView::MenuEditorView(SettingsModels& models, KeyLookup lookUp)
    : m_models(models)
    , m_tree(models)
    , m_library(new LibraryView(models))
    , m_outline(new Outline(m_tree))
    , m_inspector(new InspectorView(models, std::move(lookUp)))
{
    auto* line = new QVBoxLayout(this);
    line->setContentsMargins(12, 12, 12, 12);
    auto* columns = new QSplitter;
    columns->setChildrenCollapsible(false);
    m_menuSide = new QSplitter;
    m_menuSide->setChildrenCollapsible(false);
    for (auto* splitter : { columns, m_menuSide })
        splitter->setContentsMargins(1, 0, 1, 0); // from right to left, a splitter lays its columns a pixel too far
    m_menuSide->addWidget(outlineColumn());
    m_menuSide->addWidget(inspectorColumn());
    m_menuSide->setStretchFactor(0, 1);
    m_menuSide->setSizes({ 430, 240 });
    columns->addWidget(m_library);
    columns->addWidget(m_menuSide);
    columns->setStretchFactor(1, 1);
    auto const libraryWidth = std::clamp(m_library->fittingWidth(), narrowestLibrary, widestLibrary);
    columns->setSizes({ libraryWidth, 900 - libraryWidth });
    line->addWidget(columns);

    m_library->onAdd = [this](LibraryEntry const& entry) { addEntry(entry); };
    m_library->onShow = [this](Uuid const& item) { showItem(item); };
    m_models.editor().onEdit = [this](MenuEdit const& edit) { edited(edit); };
    m_inspector->onShowItem = [this](Uuid const& item) { showItem(item); };
    m_models.editor().undoLast = [this] { m_undo.undo(); };
    connect(&m_tree, &MenuTreeModel::aboutToLayAnew, this, [this] { keepState(); });
    connect(&m_tree, &MenuTreeModel::laidAnew, this, [this] { bringStateBack(); });
    connect(&m_tree, &MenuTreeModel::followed, this, [this] { selectionChanged(); });
    connect(m_outline->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { selectionChanged(); });
    m_undo.setUndoLimit(undoLimit);
    addActions();
    selectionChanged();
}

MenuEditorView::~MenuEditorView()
{
    m_models.editor().onEdit = nullptr;
    m_models.editor().undoLast = nullptr;
}

QWidget* MenuEditorView::outlineColumn()
{
    auto* column = new QWidget;
    auto* box = new QVBoxLayout(column);
    box->setContentsMargins(0, 0, 0, 0);
    box->addWidget(m_outline, 1);
    auto* buttons = new FlowLayout;
    addButton(*buttons, settingsTexts::addFile, [this] { addFiles(FilePanelKind::filesAndFolders); });
    addButton(*buttons, settingsTexts::addFolder, [this] { addFiles(FilePanelKind::folder); });
    addButton(*buttons, settingsTexts::addSubmenu, [this] { m_models.editor().addSubmenu(insertPosition()); });
    addButton(*buttons, settingsTexts::addSeparator, [this] { m_models.editor().addSeparator(insertPosition()); });
    m_remove = addButton(*buttons, settingsTexts::remove, [this] { removeSelected(); });
    box->addLayout(buttons);
    return column;
}

QWidget* MenuEditorView::inspectorColumn()
{
    auto* column = new QWidget;
    auto* box = new QVBoxLayout(column);
    box->setContentsMargins(6, 0, 6, 0);
    box->addWidget(m_inspector, 1);
    auto* restore = settingsButton(text(settingsTexts::restoreDefaultMenu));
    connect(restore, &QPushButton::clicked, this, [this] { m_models.menuFile().restoreDefaultMenu(); });
    auto const& gallery = m_models.gallery();
    auto* start = settingsButton(text(StartGallery::texts().open));
    start->setToolTip(gallery.canTake() ? text(StartGallery::texts().openHelp) : text(gallery.note()));
    start->setAccessibleDescription(start->toolTip());
    start->setEnabled(gallery.canTake());
    connect(start, &QPushButton::clicked, this, [this] { (new GalleryView(m_models, window()))->open(); });
    box->addWidget(start);
    box->addWidget(restore);
    auto* area = new WholeWidthArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(column);
    area->viewport()->setAutoFillBackground(false);
    column->setAutoFillBackground(false);
    return area;
}

/// Puts the inspector below the menu where three columns have no room.
void MenuEditorView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    auto const fitting = width() < widthOfThreeColumns ? Qt::Vertical : Qt::Horizontal;
    if (m_menuSide->orientation() == fitting)
        return;
    m_menuSide->setOrientation(fitting);
    m_menuSide->setSizes(fitting == Qt::Vertical ? QList<int> { 300, 220 } : QList<int> { 430, 240 });
}

QPushButton* MenuEditorView::addButton(QLayout& line, settingsTexts::Button const& texts, std::function<void()> act)
{
    auto* button = settingsButton(text(texts.title));
    button->setToolTip(text(texts.help));
    button->setAccessibleDescription(text(texts.help));
    connect(button, &QPushButton::clicked, this, [act = std::move(act)] { act(); });
    line.addWidget(button);
    return button;
}

QAction* MenuEditorView::addAction(Sentence const& title, QList<QKeySequence> const& keys, std::function<void()> act)
{
    auto* action = new QAction(text(title), m_outline);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, [act = std::move(act)] { act(); });
    m_outline->addAction(action);
    return action;
}

void MenuEditorView::addGap()
{
    auto* gap = new QAction(m_outline);
    gap->setSeparator(true);
    m_outline->addAction(gap);
}

/// Adds the actions of the outline's context menu, with their keys.
void MenuEditorView::addActions()
{
    using Keys = QKeySequence;
    addUndoActions();
    addGap();
    auto* cut = addAction(settingsTexts::cut, Keys::keyBindings(Keys::Cut), [this] {
        copySelected();
        removeSelected();
    });
    auto* copy = addAction(settingsTexts::copy, Keys::keyBindings(Keys::Copy), [this] { copySelected(); });
    m_paste = addAction(settingsTexts::paste, Keys::keyBindings(Keys::Paste), [this] { paste(); });
    auto* duplicate = addAction(settingsTexts::duplicate, { Keys(Qt::CTRL | Qt::Key_D) }, [this] { m_models.editor().duplicate(selection()); });
    // Not the toolkit's list of keys, in which Delete has Ctrl+D, too.
    auto* remove = addAction(settingsTexts::deleteSelected, { Keys(Qt::Key_Delete) }, [this] { removeSelected(); });
    addGap();
    m_up = addAction(settingsTexts::moveUp, { Keys(Qt::ALT | Qt::Key_Up) }, [this] { m_models.editor().moveUp(selection()); });
    m_down = addAction(settingsTexts::moveDown, { Keys(Qt::ALT | Qt::Key_Down) }, [this] { m_models.editor().moveDown(selection()); });
    m_selectionActions = { cut, copy, duplicate, remove };
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, [this] { enablePaste(); });
    enablePaste();
}

/// Adds undo and redo for the whole window; a text field undoes its own typing first.
void MenuEditorView::addUndoActions()
{
    auto* undo = m_undo.createUndoAction(this);
    undo->setShortcuts(QKeySequence::Undo);
    auto* redo = m_undo.createRedoAction(this);
    redo->setShortcuts(QKeySequence::Redo);
    // In the place of the toolkit's own words, which are connected before.
    auto const nameUndo = [undo](QString const& edit) { undo->setText(text(settingsTexts::undo(edit.toStdString()))); };
    auto const nameRedo = [redo](QString const& edit) { redo->setText(text(settingsTexts::redo(edit.toStdString()))); };
    connect(&m_undo, &QUndoStack::undoTextChanged, undo, nameUndo);
    connect(&m_undo, &QUndoStack::redoTextChanged, redo, nameRedo);
    nameUndo({});
    nameRedo({});
    for (auto* action : { undo, redo }) {
        QWidget::addAction(action);
        m_outline->addAction(action);
    }
}

std::set<Uuid> MenuEditorView::selection() const
{
    std::set<Uuid> ids;
    for (auto const& index : m_outline->selectionModel()->selectedRows()) {
        if (auto const id = m_tree.idOf(index))
            ids.insert(*id);
    }
    return ids;
}

MenuEditor::Position MenuEditorView::insertPosition() const
{
    auto const current = m_outline->selectionModel()->currentIndex();
    bool const isOpen = current.isValid() && m_outline->isExpanded(current.siblingAtColumn(0));
    return m_models.editor().positionAfter(selection(), isOpen ? m_tree.idOf(current) : std::nullopt);
}

void MenuEditorView::select(std::set<Uuid> const& ids)
{
    QModelIndexList rows;
    for (auto const& id : ids) {
        if (auto const index = m_tree.indexOf(id); index.isValid())
            rows.push_back(index);
    }
    auto* model = m_outline->selectionModel();
    model->select(stretchesOf(rows), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (rows.isEmpty())
        return;
    model->setCurrentIndex(rows.back(), QItemSelectionModel::NoUpdate);
    m_outline->scrollTo(rows.back());
}

void MenuEditorView::showItem(Uuid const& item)
{
    select({ item });
    m_outline->setFocus();
}

void MenuEditorView::selectionChanged()
{
    if (m_tree.isStale())
        return; // the rows are just following the store, and tell when they are done
    auto const selected = selection();
    for (auto* action : m_selectionActions)
        action->setEnabled(!selected.empty());
    m_remove->setEnabled(!selected.empty());
    m_up->setEnabled(m_models.editor().canMoveUp(selected));
    m_down->setEnabled(m_models.editor().canMoveDown(selected));
    refreshInspector();
}

void MenuEditorView::addEntry(LibraryEntry const& entry) { tell(m_models.addEntry(entry, insertPosition())); }

void MenuEditorView::tell(DropOutcome const& outcome)
{
    if (outcome.problem)
        m_models.alerts().run(*outcome.problem);
}

void MenuEditorView::addFiles(FilePanelKind kind) { tell(m_models.addChosenFiles(kind, insertPosition())); }

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
    auto const select = [this, before = selection()](std::set<Uuid> const& ids) { selectLater(ids.empty() ? before : ids); };
    m_undo.push(new EditCommand(m_models.editor(), edit, select));
    if (edit.selectionAfter)
        selectLater(*edit.selectionAfter);
}

/// The rows follow the store in the next turn.
void MenuEditorView::selectLater(std::set<Uuid> ids)
{
    QMetaObject::invokeMethod(
        this, [this, ids = std::move(ids)] { select(ids); }, Qt::QueuedConnection);
}

void MenuEditorView::enablePaste()
{
    auto const* data = QApplication::clipboard()->mimeData();
    m_paste->setEnabled(data && m_tree.canDropMimeData(data, Qt::CopyAction, -1, -1, {}));
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
            m_keptExpanded.insert(*m_tree.idOf(index));
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
    selectionChanged();
}

void MenuEditorView::refreshInspector()
{
    auto const rows = m_outline->selectionModel()->selectedRows();
    m_inspector->show(rows.size() == 1 ? m_tree.item(rows.front()) : nullptr, static_cast<std::size_t>(rows.size()));
}

} // namespace zv
