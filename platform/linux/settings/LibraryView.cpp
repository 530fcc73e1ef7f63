#include "platform/linux/settings/LibraryView.h"

#include "app/settings/SettingsTexts.h"
#include "platform/linux/icons/MenuImages.h"
#include "platform/linux/settings/EmptyText.h"
#include "platform/linux/settings/MenuTreeModel.h"
#include "platform/linux/settings/SettingsButton.h"
#include "platform/linux/settings/ShownText.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace zv {

namespace {

constexpr int entryRole = Qt::UserRole;
constexpr int itemRole = Qt::UserRole + 1; ///< the id of an item of the menu

} // namespace

/// Drags entries as the records of the items they add.
class LibraryView::Tree : public QTreeWidget {
public:
    explicit Tree(LibraryPalette const& palette)
        : m_palette(palette)
    {
        setHeaderHidden(true);
        setRootIsDecorated(false);
        setIndentation(10);
        setIconSize({ menuIconSize, menuIconSize });
        setDragEnabled(true);
        setDragDropMode(QAbstractItemView::DragOnly);
        setSelectionMode(QAbstractItemView::SingleSelection);
        setAccessibleName(zv::text(settingsTexts::library));
    }

    [[nodiscard]] LibraryEntry const* entry(QTreeWidgetItem const* item) const
    {
        auto const id = item ? item->data(0, entryRole).toString() : QString();
        return id.isEmpty() ? nullptr : m_palette.entry(id.toStdString());
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QTreeWidget::paintEvent(event);
        if (topLevelItemCount() == 0)
            paintEmptyText(*this, settingsTexts::nothingFound);
    }
    [[nodiscard]] QStringList mimeTypes() const override { return { QLatin1StringView(menuItemDragType) }; }
    [[nodiscard]] QMimeData* mimeData(QList<QTreeWidgetItem*> const& items) const override
    {
        std::vector<std::string> records;
        for (auto const* item : items) {
            if (auto const* dragged = entry(item))
                records.push_back(toDragRecord(menuTree::withFreshIds(dragged->itemTemplate)));
        }
        return mimeDataOfRecords(records);
    }
    [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }

private:
    LibraryPalette const& m_palette;
};

LibraryView::LibraryView(SettingsModels& models)
    : m_models(models)
    , m_search(new QLineEdit)
    , m_tree(new Tree(models.palette()))
    , m_show(settingsButton(zv::text(settingsTexts::showInMenu.title)))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_search);
    column->addWidget(m_tree, 1);
    column->addWidget(m_show);
    m_show->setToolTip(zv::text(settingsTexts::showInMenu.help));
    m_show->setAccessibleDescription(m_show->toolTip());
    QObject::connect(m_show, &QPushButton::clicked, this, [this] { addChosen(); });
    QObject::connect(m_tree, &QTreeWidget::currentItemChanged, this, [this] { m_show->setVisible(chosenItem().has_value()); });
    m_show->hide();
    m_search->setPlaceholderText(zv::text(settingsTexts::search));
    m_search->setClearButtonEnabled(true);
    m_search->setAccessibleName(zv::text(settingsTexts::searchLibrary));
    m_search->installEventFilter(this);
    QObject::connect(m_search, &QLineEdit::textChanged, this, [this] { fill(); });
    QObject::connect(m_search, &QLineEdit::returnPressed, this, [this] { addChosen(); });
    QObject::connect(m_tree, &QTreeWidget::itemActivated, this, [this] { addChosen(); });
    fill();
}

/// A library entry whose picture is fetched when it comes into sight: there may be hundreds of applications.
class LibraryView::Entry : public QTreeWidgetItem {
public:
    Entry(QTreeWidgetItem* heading, LibraryEntry const& entry, SettingsModels& models)
        : QTreeWidgetItem(heading, { zv::text(entry.title) })
        , m_models(models)
        , m_item(entry.itemTemplate)
    {
        setData(0, entryRole, zv::text(entry.id));
        if (entry.own)
            setFlags(flags() & ~Qt::ItemIsDragEnabled); // it is asked for first
        setToolTip(0, zv::text(entry.localizedDescription));
        setData(0, Qt::AccessibleDescriptionRole, zv::text(entry.localizedDescription));
    }
    [[nodiscard]] QVariant data(int column, int role) const override
    {
        if (role != Qt::DecorationRole)
            return QTreeWidgetItem::data(column, role);
        auto const image = m_models.iconOf(m_item);
        return image ? menuIconOf(image) : blankMenuIcon();
    }

private:
    SettingsModels& m_models;
    MenuItem m_item;
};

int LibraryView::fittingWidth() const
{
    auto const frame = 2 * m_tree->frameWidth() + m_tree->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return static_cast<QAbstractItemView*>(m_tree)->sizeHintForColumn(0) + frame;
}

void LibraryView::fill()
{
    m_observation = withObservationTracking([this] { refill(); },
        [this] {
            QMetaObject::invokeMethod(
                this, [this] { fill(); }, Qt::QueuedConnection);
        });
}

void LibraryView::refill()
{
    auto const position = m_tree->verticalScrollBar()->value();
    auto const chosen = m_tree->currentItem() ? m_tree->currentItem()->data(0, entryRole) : QVariant();
    m_tree->clear();
    auto bold = m_tree->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 0.92);
    auto const addHeading = [&](QString const& title) {
        auto* heading = new QTreeWidgetItem(m_tree, { title });
        heading->setFlags(Qt::ItemIsEnabled);
        heading->setFont(0, bold);
        heading->setForeground(0, palette().color(QPalette::PlaceholderText));
        return heading;
    };
    auto const search = m_search->text().toStdString();
    for (auto const& group : m_models.palette().groups(search)) {
        auto* heading = addHeading(text(group.title));
        for (auto const* entry : group.entries) {
            auto* item = new Entry(heading, *entry, m_models);
            if (item->data(0, entryRole) == chosen)
                m_tree->setCurrentItem(item);
        }
    }
    if (auto const found = m_models.itemsFound(search); !found.empty())
        addItems(*addHeading(zv::text(settingsTexts::inYourMenu)), found);
    m_tree->expandAll();
    m_tree->verticalScrollBar()->setValue(position);
    if (!m_search->text().isEmpty() && m_tree->topLevelItemCount() > 0)
        m_tree->setCurrentItem(m_tree->topLevelItem(0)->child(0));
}

void LibraryView::addItems(QTreeWidgetItem& heading, std::vector<MenuItem const*> const& items)
{
    for (auto const* item : items) {
        auto* row = new QTreeWidgetItem(&heading, { text(m_models.outline().row(*item).title) });
        row->setData(0, itemRole, text(item->id.toString()));
        row->setToolTip(0, m_show->toolTip());
        row->setData(0, Qt::AccessibleDescriptionRole, m_show->toolTip());
        row->setFlags(row->flags() & ~Qt::ItemIsDragEnabled);
        auto const image = m_models.iconOf(*item);
        row->setIcon(0, image ? menuIconOf(image) : blankMenuIcon());
    }
}

/// The item of the menu that is chosen, if one is.
std::optional<Uuid> LibraryView::chosenItem() const
{
    auto const* row = m_tree->currentItem();
    return row ? Uuid::parse(row->data(0, itemRole).toString().toStdString()) : std::nullopt;
}

void LibraryView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        fill(); // the headings' colour follows the palette
}

bool LibraryView::eventFilter(QObject* watched, QEvent* event)
{
    bool const isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    return (isKey && searchKeyPressed(static_cast<QKeyEvent&>(*event))) || QWidget::eventFilter(watched, event);
}

/// Moves through the search results while typing goes on; Escape clears the search before it
/// closes the window.
bool LibraryView::searchKeyPressed(QKeyEvent& event)
{
    bool const isPress = event.type() == QEvent::KeyPress;
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return isPress && QCoreApplication::sendEvent(m_tree, &event);
    case Qt::Key_Escape:
        if (m_search->text().isEmpty())
            return false;
        event.accept();
        if (isPress)
            m_search->clear();
        return true;
    default:
        return false;
    }
}

void LibraryView::addChosen()
{
    if (auto const item = chosenItem(); item && onShow)
        return onShow(*item);
    auto const* chosen = static_cast<Tree*>(m_tree)->entry(m_tree->currentItem());
    if (chosen && onAdd)
        onAdd(*chosen);
}

} // namespace zv
