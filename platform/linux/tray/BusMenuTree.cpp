#include "platform/linux/tray/BusMenuTree.h"

#include "platform/linux/icons/MenuImages.h"
#include "platform/linux/menu/ShortcutText.h"

#include <QBuffer>
#include <QPixmap>

namespace zv {

namespace {

/// The title with "_" doubled: on the bus one underscore marks a mnemonic.
QString busLabel(std::string const& title) { return QString::fromStdString(title).replace(u'_', QLatin1String("__")); }

QByteArray pngOf(QIcon const& icon)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    icon.pixmap(menuIconSize).save(&buffer, "PNG");
    return bytes;
}

void addIcon(QVariantMap& properties, ImageRef const& image)
{
    if (!image)
        return;
    auto const name = QString::fromStdString(image->name());
    if (!name.isEmpty() && !name.contains(u'/'))
        properties.insert(QStringLiteral("icon-name"), name);
    else if (auto const icon = menuIconOf(image); !icon.isNull())
        properties.insert(QStringLiteral("icon-data"), pngOf(icon));
}

/// Whether it is a disabled entry with a tool tip, which menus on the bus lack.
bool explainsItself(MenuEntry const& entry) { return !entry.enabled && !entry.submenu && !entry.toolTip.empty(); }

QVariantMap propertiesOf(MenuEntry const& entry, bool hasSubmenu)
{
    QVariantMap properties;
    if (entry.type == MenuEntry::Type::separator) {
        properties.insert(QStringLiteral("type"), QStringLiteral("separator"));
        return properties;
    }
    properties.insert(QStringLiteral("label"), busLabel(entry.visibleTitle()));
    if (hasSubmenu)
        properties.insert(QStringLiteral("children-display"), QStringLiteral("submenu"));
    if (!entry.enabled && !explainsItself(entry))
        properties.insert(QStringLiteral("enabled"), false);
    if (entry.isMarked) {
        properties.insert(QStringLiteral("toggle-type"), QStringLiteral("checkmark"));
        properties.insert(QStringLiteral("toggle-state"), 1);
    }
    bool const isInUse = !entry.attributedTitle || !entry.attributedTitle->hintIsItalic; // the bus knows no italics
    if (auto const keys = columnKeysOf(entry); isInUse && !keys.isEmpty())
        properties.insert(QStringLiteral("shortcut"), QVariant::fromValue(QList<QStringList> { keys.busNames() }));
    addIcon(properties, entry.image);
    return properties;
}

QVariantMap only(QVariantMap const& properties, QStringList const& names)
{
    if (names.isEmpty())
        return properties;
    QVariantMap wanted;
    for (auto const& name : names) {
        if (auto const found = properties.find(name); found != properties.end())
            wanted.insert(name, found.value());
    }
    return wanted;
}

} // namespace

BusMenuTree::BusMenuTree(std::shared_ptr<Menu> menu) { m_nodes[rootID].menu = std::move(menu); }

BusMenuTree::~BusMenuTree()
{
    for (auto const& [id, node] : m_nodes) {
        if (node.menu && id != rootID)
            node.menu->onRefilled = nullptr;
    }
}

BusMenuTree::Node const* BusMenuTree::find(int id) const
{
    auto const found = m_nodes.find(id);
    return found == m_nodes.end() ? nullptr : &found->second;
}

bool BusMenuTree::aboutToShow(int id)
{
    auto const* node = find(id);
    if (!node || !node->menu || (id != rootID && node->menu->delegate.expired()))
        return false;
    auto const menu = node->menu; // a copy, as filling the menu may change the tree
    m_replaced.clear();
    menu->needsUpdate();
    mirror(id);
    follow(id);
    m_isFilled = m_isFilled || id == rootID;
    return true;
}

void BusMenuTree::closed(int id)
{
    if (auto const* node = find(id); node && node->menu) {
        auto const menu = node->menu;
        menu->didClose();
    }
}

std::shared_ptr<MenuActionTarget> BusMenuTree::target(int id) const
{
    auto const* node = find(id);
    if (!node) {
        auto const replaced = m_replaced.find(id);
        node = replaced == m_replaced.end() ? nullptr : &replaced->second;
    }
    return node && node->entry.enabled ? node->entry.target : nullptr;
}

BusMenuLayout BusMenuTree::layout(int id, int depth, QStringList const& names)
{
    if (id == rootID && !m_isFilled)
        aboutToShow(rootID);
    BusMenuLayout layout { id, properties(id, names), {} };
    auto const* node = find(id);
    if (!node || depth == 0)
        return layout;
    for (auto const child : node->children)
        layout.children.append(this->layout(child, depth - 1, names));
    return layout;
}

QVariantMap BusMenuTree::properties(int id, QStringList const& names) const
{
    auto const* node = find(id);
    if (!node)
        return {};
    if (id == rootID)
        return only({ { QStringLiteral("children-display"), QStringLiteral("submenu") } }, names);
    return only(propertiesOf(node->entry, node->menu || !node->children.empty()), names);
}

int BusMenuTree::add(MenuEntry const& entry)
{
    auto const id = m_nextID++;
    m_nodes.emplace(id, Node { entry, entry.submenu });
    if (entry.submenu)
        mirror(id);
    else if (explainsItself(entry))
        addReason(id, entry.toolTip);
    return id;
}

void BusMenuTree::mirror(int id)
{
    drop(m_nodes.at(id).children);
    std::vector<int> children;
    auto const menu = m_nodes.at(id).menu;
    for (auto const& entry : menu->entries)
        children.push_back(add(entry));
    m_nodes.at(id).children = std::move(children);
}

void BusMenuTree::addReason(int id, std::string const& reason)
{
    auto const line = m_nextID++;
    m_nodes.emplace(line, Node { MenuEntry::disabled(reason), nullptr });
    m_nodes.at(id).children.push_back(line);
}

void BusMenuTree::drop(std::vector<int> const& ids)
{
    for (auto const id : ids) {
        auto dropped = m_nodes.extract(id);
        if (dropped.mapped().menu)
            dropped.mapped().menu->onRefilled = nullptr;
        drop(dropped.mapped().children);
        m_replaced.insert(std::move(dropped));
    }
}

void BusMenuTree::follow(int id)
{
    if (id == rootID)
        return;
    m_nodes.at(id).menu->onRefilled = [this, id] {
        mirror(id);
        if (onChanged)
            onChanged(id);
    };
}

} // namespace zv
