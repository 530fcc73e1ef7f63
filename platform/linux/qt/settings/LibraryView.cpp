#include "platform/linux/qt/settings/LibraryView.h"

#include "app/menu/MenuIcon.h"
#include "platform/linux/qt/MenuImages.h"
#include "platform/linux/qt/settings/MenuTreeModel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QVBoxLayout>

namespace zv {

namespace {

constexpr int entryRole = Qt::UserRole;

QString text(std::string const& utf8) { return QString::fromStdString(utf8); }

} // namespace

/// Drags entries as the records of what they add.
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
        setAccessibleName(QStringLiteral("Library"));
    }

    [[nodiscard]] LibraryEntry const* entry(QTreeWidgetItem const* item) const
    {
        auto const id = item ? item->data(0, entryRole).toString() : QString();
        return id.isEmpty() ? nullptr : m_palette.entry(id.toStdString());
    }

protected:
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

LibraryView::LibraryView(LibraryPalette const& palette, MenuIcons& icons)
    : m_palette(palette)
    , m_icons(icons)
    , m_search(new QLineEdit)
    , m_tree(new Tree(palette))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_search);
    column->addWidget(m_tree, 1);
    m_search->setPlaceholderText(QStringLiteral("Search"));
    m_search->setClearButtonEnabled(true);
    m_search->setAccessibleName(QStringLiteral("Search the library"));
    QObject::connect(m_search, &QLineEdit::textChanged, this, [this] { fill(); });
    QObject::connect(m_search, &QLineEdit::returnPressed, this, [this] { addChosen(); });
    QObject::connect(m_tree, &QTreeWidget::itemActivated, this, [this] { addChosen(); });
    fill();
}

void LibraryView::fill()
{
    m_tree->clear();
    auto bold = m_tree->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 0.92);
    for (auto const& group : m_palette.groups(m_search->text().toStdString())) {
        auto* heading = new QTreeWidgetItem(m_tree, { text(group.title) });
        heading->setFlags(Qt::ItemIsEnabled);
        heading->setFont(0, bold);
        heading->setForeground(0, palette().color(QPalette::PlaceholderText));
        for (auto const* entry : group.entries) {
            auto* item = new QTreeWidgetItem(heading, { text(entry->title) });
            item->setData(0, entryRole, text(entry->id));
            item->setToolTip(0, text(entry->localizedDescription));
            item->setData(0, Qt::AccessibleDescriptionRole, text(entry->localizedDescription));
            auto const image = m_icons.iconForKind(entry->itemTemplate.kind);
            item->setIcon(0, image ? menuIconOf(image) : blankMenuIcon());
        }
    }
    m_tree->expandAll();
    if (!m_search->text().isEmpty() && m_tree->topLevelItemCount() > 0)
        m_tree->setCurrentItem(m_tree->topLevelItem(0)->child(0));
}

void LibraryView::addChosen()
{
    auto const* chosen = static_cast<Tree*>(m_tree)->entry(m_tree->currentItem());
    if (chosen && onAdd)
        onAdd(*chosen);
}

} // namespace zv
