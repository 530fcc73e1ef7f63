#include "platform/linux/settings/MenuTreeModel.h"

#include "app/settings/SettingsTexts.h"
#include "platform/linux/icons/MenuImages.h"
#include "platform/linux/menu/MenuDragging.h"
#include "platform/linux/settings/RecorderField.h"

#include <QApplication>
#include <QFont>
#include <QMimeData>
#include <QPalette>
#include <QStyle>

namespace zv {

namespace {

QString const recordType = QLatin1StringView(menuItemDragType);
/// Names a drag's process: within it a drop moves, from elsewhere it copies.
QString const originType = QStringLiteral("application/x-zanthe-vell-process");

QByteArray ownProcess() { return QByteArray::number(QCoreApplication::applicationPid()); }

/// Splits the data into records, one a line: our JSON has no line breaks.
std::vector<std::string> recordsOf(QMimeData const& data)
{
    std::vector<std::string> records;
    for (auto const& line : data.data(recordType).split('\n')) {
        if (!line.isEmpty())
            records.push_back(line.toStdString());
    }
    return records;
}

} // namespace

QMimeData* mimeDataOfRecords(std::vector<std::string> const& records)
{
    QByteArray lines;
    for (auto const& record : records)
        lines += QByteArray::fromStdString(record) + '\n';
    auto* data = new QMimeData;
    data->setData(recordType, lines);
    data->setData(originType, ownProcess());
    return data;
}

MenuTreeModel::MenuTreeModel(SettingsModels& models)
    : m_models(models)
{
    auto const& items = m_models.store().items();
    lay(m_root, items);
    remember(m_root, items);
    observe();
}

MenuTreeModel::~MenuTreeModel() = default;

void MenuTreeModel::observe()
{
    m_observation = withObservationTracking([this] { m_models.readOutline(); },
        [this] {
            QMetaObject::invokeMethod(
                this, [this] { storeChanged(); }, Qt::QueuedConnection);
            m_isStale = true;
        });
}

void MenuTreeModel::storeChanged()
{
    auto const& items = m_models.store().items();
    observe();
    if (hasShape(m_root, items)) {
        remember(m_root, items);
        m_isStale = false;
        tellDataChanged({});
        return;
    }
    Q_EMIT aboutToLayAnew();
    beginResetModel();
    m_nodes.clear();
    m_root.children.clear();
    lay(m_root, items);
    remember(m_root, items);
    m_isStale = false;
    endResetModel();
    Q_EMIT laidAnew();
}

bool MenuTreeModel::hasShape(Node const& node, std::vector<MenuItem> const& items)
{
    if (node.children.size() != items.size())
        return false;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (node.children[i]->id != items[i].id || !hasShape(*node.children[i], items[i].children))
            return false;
    }
    return true;
}

void MenuTreeModel::lay(Node& node, std::vector<MenuItem> const& items)
{
    node.children.reserve(items.size());
    for (auto const& item : items) {
        auto child = std::make_unique<Node>();
        child->id = item.id;
        child->parent = &node;
        child->row = static_cast<int>(node.children.size());
        m_nodes.emplace(item.id, child.get());
        lay(*child, item.children);
        node.children.push_back(std::move(child));
    }
}

void MenuTreeModel::remember(Node& node, std::vector<MenuItem> const& items)
{
    for (std::size_t i = 0; i < items.size(); ++i) {
        auto& child = *node.children[i];
        child.item = &items[i];
        child.shown.reset();
        remember(child, items[i].children);
    }
}

void MenuTreeModel::tellDataChanged(QModelIndex const& parent)
{
    auto const count = rowCount(parent);
    if (count == 0)
        return;
    Q_EMIT dataChanged(index(0, 0, parent), index(count - 1, columnEnd - 1, parent));
    for (int row = 0; row < count; ++row)
        tellDataChanged(index(row, 0, parent));
}

MenuTreeModel::Node* MenuTreeModel::nodeOf(QModelIndex const& index) const
{
    return index.isValid() ? static_cast<Node*>(index.internalPointer()) : const_cast<Node*>(&m_root);
}

MenuItem const* MenuTreeModel::item(QModelIndex const& index) const { return index.isValid() && !m_isStale ? nodeOf(index)->item : nullptr; }

QModelIndex MenuTreeModel::indexOf(Uuid const& id) const
{
    auto const found = m_nodes.find(id);
    return found == m_nodes.end() ? QModelIndex() : createIndex(found->second->row, 0, found->second);
}

MenuEditor::Position MenuTreeModel::positionOf(int row, QModelIndex const& parent) const
{
    auto const* node = nodeOf(parent);
    auto const index = row < 0 ? node->children.size() : static_cast<std::size_t>(row);
    return { node == &m_root ? std::nullopt : std::optional(node->id), index };
}

QModelIndex MenuTreeModel::index(int row, int column, QModelIndex const& parent) const
{
    auto const* node = nodeOf(parent);
    bool const isThere = row >= 0 && static_cast<std::size_t>(row) < node->children.size() && column >= 0 && column < columnEnd;
    return isThere ? createIndex(row, column, node->children[static_cast<std::size_t>(row)].get()) : QModelIndex();
}

QModelIndex MenuTreeModel::parent(QModelIndex const& child) const
{
    auto* parent = child.isValid() ? nodeOf(child)->parent : nullptr;
    return parent && parent != &m_root ? createIndex(parent->row, 0, parent) : QModelIndex();
}

int MenuTreeModel::rowCount(QModelIndex const& parent) const { return parent.column() > 0 ? 0 : static_cast<int>(nodeOf(parent)->children.size()); }

QVariant MenuTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return QString::fromUtf8(section == titleColumn ? settingsTexts::titleColumn : settingsTexts::shortcutColumn);
}

QVariant MenuTreeModel::data(QModelIndex const& index, int role) const
{
    if (!item(index))
        return {};
    auto const& node = *nodeOf(index);
    return index.column() == titleColumn ? titleData(node, role) : shortcutData(node, role);
}

OutlineRow const& MenuTreeModel::rowOf(Node const& node) const
{
    if (!node.shown)
        node.shown = m_models.outline().row(*node.item);
    return *node.shown;
}

QVariant MenuTreeModel::titleData(Node const& node, int role) const
{
    auto const& row = rowOf(node);
    switch (role) {
    case Qt::DisplayRole:
        return QString::fromStdString(row.shownTitle());
    case Qt::EditRole:
        return QString::fromStdString(node.item->displayTitle());
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
        return QString::fromStdString(row.badge);
    case Qt::AccessibleTextRole:
        return QString::fromStdString(row.spokenTitle());
    case Qt::ForegroundRole:
        return row.isFaint() ? QVariant(QApplication::palette().color(QPalette::PlaceholderText)) : QVariant();
    case Qt::DecorationRole:
        return decoration(node);
    default:
        return {};
    }
}

QVariant MenuTreeModel::decoration(Node const& node) const
{
    auto const& row = rowOf(node);
    if (row.isSeparator)
        return {};
    if (!row.badge.empty())
        return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
    auto const image = m_models.iconOf(*node.item);
    return image ? menuIconOf(image) : blankMenuIcon();
}

QVariant MenuTreeModel::shortcutData(Node const& node, int role) const
{
    if (role == Qt::DisplayRole && node.item->keyEquivalent)
        return readableShortcut(*node.item->keyEquivalent);
    return role == Qt::ToolTipRole || role == Qt::ForegroundRole ? titleData(node, role) : QVariant();
}

Qt::ItemFlags MenuTreeModel::flags(QModelIndex const& index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    auto const* shown = item(index);
    if (!shown) // a click that ends the typing of a title selects before the tree is rebuilt
        return flags;
    flags |= Qt::ItemIsDragEnabled;
    if (menuTree::canHoldItems(*shown))
        flags |= Qt::ItemIsDropEnabled;
    if (index.column() == titleColumn && shown->kind != MenuItemKind::separator)
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool MenuTreeModel::setData(QModelIndex const& index, QVariant const& value, int role)
{
    auto const* edited = item(index);
    auto const title = value.toString().toStdString();
    if (!edited || role != Qt::EditRole || title == edited->displayTitle())
        return false;
    m_models.editor().setTitle(edited->id, title);
    return true;
}

QStringList MenuTreeModel::mimeTypes() const { return { recordType, QStringLiteral("text/uri-list") }; }

QMimeData* MenuTreeModel::mimeData(QModelIndexList const& indexes) const
{
    std::set<Uuid> ids;
    for (auto const& index : indexes)
        ids.insert(nodeOf(index)->id);
    return mimeDataOfRecords(m_models.editor().records(ids));
}

bool MenuTreeModel::canDropMimeData(QMimeData const* data, Qt::DropAction, int, int, QModelIndex const& parent) const
{
    auto const* target = item(parent);
    return (data->hasFormat(recordType) || data->hasUrls()) && (!target || menuTree::canHoldItems(*target));
}

bool MenuTreeModel::dropMimeData(QMimeData const* data, Qt::DropAction action, int row, int, QModelIndex const& parent)
{
    take(*data, action, positionOf(row, parent));
    return false; // the store has moved the items: the view must not remove them
}

void MenuTreeModel::take(QMimeData const& data, Qt::DropAction action, MenuEditor::Position const& position)
{
    bool const moves = action == Qt::MoveAction && data.data(originType) == ownProcess();
    MenuDrop const drop { recordsOf(data), filesOf(data), moves ? MenuEditor::Drop::move : MenuEditor::Drop::copy };
    auto const outcome = zv::take(drop, m_models.editor(), position);
    if (!outcome.problem)
        return;
    // Later, as the drag is still going on.
    QMetaObject::invokeMethod(
        this, [this, problem = *outcome.problem] { m_models.alerts().run(problem); }, Qt::QueuedConnection);
}

} // namespace zv
