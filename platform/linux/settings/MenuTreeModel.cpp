#include "platform/linux/settings/MenuTreeModel.h"

#include "app/settings/SettingsTexts.h"
#include "platform/linux/icons/MenuImages.h"
#include "platform/linux/menu/MenuDragging.h"
#include "platform/linux/settings/FaintText.h"
#include "platform/linux/settings/RecorderField.h"
#include "platform/linux/settings/ShownText.h"

#include <QApplication>
#include <QFont>
#include <QMimeData>
#include <QPalette>
#include <QStyle>

#include <algorithm>
#include <iterator>
#include <utility>

namespace zv {

namespace {

/// The most steps in which rows follow the store; more of them take longer than laying the tree anew.
constexpr int mostSteps = 64;

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
                this, [this] { catchUp(); }, Qt::QueuedConnection);
            m_isStale = true;
        });
}

void MenuTreeModel::catchUp()
{
    if (!m_isStale)
        return;
    auto const& items = m_models.store().items();
    observe();
    if (!hasShape(m_root, items) && !follow(items))
        return layAnew(items);
    remember(m_root, items);
    m_isStale = false;
    tellDataChanged();
    Q_EMIT followed();
}

void MenuTreeModel::layAnew(std::vector<MenuItem> const& items)
{
    Q_EMIT aboutToLayAnew();
    beginResetModel();
    m_nodes.clear();
    m_root.children.clear();
    lay(m_root, items);
    remember(m_root, items);
    m_changed.clear();
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

std::unique_ptr<MenuTreeModel::Node> MenuTreeModel::nodeFor(MenuItem const& item, Node& parent)
{
    auto node = std::make_unique<Node>();
    node->id = item.id;
    node->parent = &parent;
    note(item, *node);
    m_nodes.emplace(item.id, node.get());
    return node;
}

/// Whether what others know of the node differs.
bool MenuTreeModel::note(MenuItem const& item, Node& node)
{
    bool const wasGroup = std::exchange(node.isGroup, menuTree::canHoldItems(item));
    bool const wasSeparator = std::exchange(node.isSeparator, item.kind == MenuItemKind::separator);
    return node.shown || node.isGroup != wasGroup || node.isSeparator != wasSeparator;
}

void MenuTreeModel::lay(Node& node, std::vector<MenuItem> const& items)
{
    node.children.reserve(items.size());
    for (auto const& item : items) {
        auto child = nodeFor(item, node);
        lay(*child, item.children);
        node.children.push_back(std::move(child));
    }
    number(node);
}

void MenuTreeModel::remember(Node& node, std::vector<MenuItem> const& items)
{
    for (std::size_t i = 0; i < items.size(); ++i) {
        auto& child = *node.children[i];
        child.item = &items[i];
        if (note(items[i], child))
            m_changed.push_back(&child);
        child.shown.reset();
        remember(child, items[i].children);
    }
}

/// Follows the items by removals, insertions and moves, in the order of the new tree, so that whatever stands before
/// a row is in its place already. False when that takes too many steps.
bool MenuTreeModel::follow(std::vector<MenuItem> const& items)
{
    std::set<Uuid> staying;
    std::size_t count = 0;
    std::function<void(std::vector<MenuItem> const&)> const collect = [&](auto const& level) {
        count += level.size();
        for (auto const& item : level) {
            staying.insert(item.id);
            collect(item.children);
        }
    };
    collect(items);
    if (staying.size() != count)
        return false; // an id that occurs twice tells no rows apart
    removeAllBut(staying, m_root);
    int steps = mostSteps;
    return place(m_root, items, steps);
}

void MenuTreeModel::removeAllBut(std::set<Uuid> const& staying, Node& node)
{
    auto const stays = [&](std::size_t row) { return staying.contains(node.children[row]->id); };
    for (std::size_t end = node.children.size(); end > 0; --end) {
        if (stays(end - 1)) {
            removeAllBut(staying, *node.children[end - 1]);
            continue;
        }
        auto first = end - 1;
        while (first > 0 && !stays(first - 1))
            --first;
        dropRows(node, first, end);
        end = first + 1;
    }
}

void MenuTreeModel::dropRows(Node& node, std::size_t first, std::size_t end)
{
    beginRemoveRows(indexOf(node), static_cast<int>(first), static_cast<int>(end) - 1);
    auto const begin = node.children.begin() + static_cast<std::ptrdiff_t>(first);
    auto const last = node.children.begin() + static_cast<std::ptrdiff_t>(end);
    std::for_each(begin, last, [this](auto const& leaving) { forget(*leaving); });
    node.children.erase(begin, last);
    number(node, first);
    endRemoveRows();
}

void MenuTreeModel::forget(Node const& node)
{
    m_nodes.erase(node.id);
    for (auto const& child : node.children)
        forget(*child);
}

bool MenuTreeModel::place(Node& node, std::vector<MenuItem> const& items, int& steps)
{
    for (std::size_t at = 0; at < items.size(); ++at) {
        if (at >= node.children.size() || node.children[at]->id != items[at].id) {
            if (--steps < 0)
                return false;
            bring(node, at, items);
        }
        if (!place(*node.children[at], items[at].children, steps))
            return false;
    }
    return true;
}

/// Brings the item's row there, along with those that follow it both here and there. What stands in the way of a
/// longer stretch goes to the end instead, from where it is fetched in its turn.
void MenuTreeModel::bring(Node& node, std::size_t at, std::vector<MenuItem> const& items)
{
    auto const known = m_nodes.find(items[at].id);
    if (known == m_nodes.end())
        return addRows(node, at, items);
    auto& from = *known->second->parent;
    auto const first = static_cast<std::size_t>(known->second->row);
    std::size_t count = 1;
    while (at + count < items.size() && first + count < from.children.size() && from.children[first + count]->id == items[at + count].id)
        ++count;
    if (&from == &node && count > first - at)
        shiftRows(node, at, first - at, node, node.children.size());
    else
        shiftRows(from, first, count, node, at);
}

void MenuTreeModel::addRows(Node& node, std::size_t at, std::vector<MenuItem> const& items)
{
    auto end = at + 1;
    while (end < items.size() && !m_nodes.contains(items[end].id))
        ++end;
    beginInsertRows(indexOf(node), static_cast<int>(at), static_cast<int>(end) - 1);
    std::vector<std::unique_ptr<Node>> inserted;
    for (auto i = at; i < end; ++i)
        inserted.push_back(nodeFor(items[i], node));
    node.children.insert(
        node.children.begin() + static_cast<std::ptrdiff_t>(at), std::make_move_iterator(inserted.begin()), std::make_move_iterator(inserted.end()));
    number(node, at);
    endInsertRows();
}

void MenuTreeModel::shiftRows(Node& from, std::size_t first, std::size_t count, Node& node, std::size_t at)
{
    beginMoveRows(indexOf(from), static_cast<int>(first), static_cast<int>(first + count) - 1, indexOf(node), static_cast<int>(at));
    auto const begin = from.children.begin() + static_cast<std::ptrdiff_t>(first);
    auto const end = begin + static_cast<std::ptrdiff_t>(count);
    std::vector<std::unique_ptr<Node>> moved(std::make_move_iterator(begin), std::make_move_iterator(end));
    from.children.erase(begin, end);
    auto const to = &from == &node && at > first ? at - count : at;
    for (auto const& each : moved)
        each->parent = &node;
    node.children.insert(node.children.begin() + static_cast<std::ptrdiff_t>(to), std::make_move_iterator(moved.begin()), std::make_move_iterator(moved.end()));
    number(from);
    number(node);
    endMoveRows();
}

void MenuTreeModel::number(Node& node, std::size_t first)
{
    for (auto row = first; row < node.children.size(); ++row)
        node.children[row]->row = static_cast<int>(row);
}

QModelIndex MenuTreeModel::indexOf(Node const& node) const { return &node == &m_root ? QModelIndex() : createIndex(node.row, 0, &node); }

/// Once for each run of rows: a view looks for the place of every row that it is told of.
void MenuTreeModel::tellDataChanged()
{
    auto const changed = std::exchange(m_changed, {});
    for (auto first = changed.begin(); first != changed.end();) {
        auto const isOther = [](Node const* a, Node const* b) { return a->parent != b->parent || a->row + 1 != b->row; };
        auto const last = std::adjacent_find(first, changed.end(), isOther);
        auto const* end = last == changed.end() ? changed.back() : *last;
        Q_EMIT dataChanged(indexOf(**first), createIndex(end->row, columnEnd - 1, end));
        first = last == changed.end() ? last : std::next(last);
    }
}

MenuTreeModel::Node* MenuTreeModel::nodeOf(QModelIndex const& index) const
{
    return index.isValid() ? static_cast<Node*>(index.internalPointer()) : const_cast<Node*>(&m_root);
}

MenuItem const* MenuTreeModel::item(QModelIndex const& index) const { return index.isValid() && !m_isStale ? nodeOf(index)->item : nullptr; }

std::optional<Uuid> MenuTreeModel::idOf(QModelIndex const& index) const { return index.isValid() ? std::optional(nodeOf(index)->id) : std::nullopt; }

bool MenuTreeModel::hasChildren(QModelIndex const& parent) const
{
    auto const* node = nodeOf(parent);
    return parent.column() <= 0 && (node->isGroup || !node->children.empty());
}

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
    return text(section == titleColumn ? settingsTexts::titleColumn : settingsTexts::shortcutColumn);
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
        return row.isFaint() ? QVariant(faintText(QApplication::palette())) : QVariant();
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
    (void)rowOf(node); // notes that somebody has asked
    if (role == Qt::DisplayRole && node.item->keyEquivalent)
        return readableShortcut(*node.item->keyEquivalent);
    return role == Qt::ToolTipRole || role == Qt::ForegroundRole ? titleData(node, role) : QVariant();
}

Qt::ItemFlags MenuTreeModel::flags(QModelIndex const& index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (m_isStale) // a click that ends the typing of a title selects before the tree is rebuilt
        return flags;
    auto const& node = *nodeOf(index);
    flags |= Qt::ItemIsDragEnabled;
    if (node.isGroup)
        flags |= Qt::ItemIsDropEnabled;
    if (index.column() == titleColumn && !node.isSeparator)
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
