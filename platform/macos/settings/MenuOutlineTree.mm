#import "platform/macos/settings/MenuOutlineTree.h"

@implementation ZVMenuNode

@synthesize parent = _parent;

- (instancetype)initWithIdentity:(zv::Uuid const&)identity
{
    if ((self = [super init]))
        _identity = identity;
    return self;
}
- (zv::Uuid const&)identity
{
    return _identity;
}
- (std::vector<ZVMenuNode*>&)children
{
    return _children;
}

@end

namespace zv {

void MenuOutlineTree::lay(std::vector<MenuItem> const& items)
{
    auto before = std::move(m_nodes);
    m_nodes.clear();
    m_items.clear();
    m_roots = nodesFor(items, nil, before);
}

std::vector<ZVMenuNode*> MenuOutlineTree::nodesFor(std::vector<MenuItem> const& items, ZVMenuNode* parent, std::map<Uuid, ZVMenuNode*>& before)
{
    std::vector<ZVMenuNode*> nodes;
    for (auto const& item : items) {
        auto kept = before.extract(item.id); // of two items with the same id the first keeps the node
        ZVMenuNode* const node = kept.empty() ? [[ZVMenuNode alloc] initWithIdentity:item.id] : kept.mapped();
        m_nodes.emplace(item.id, node);
        m_items.emplace(item.id, &item);
        node.parent = parent;
        [node children] = nodesFor(item.children, node, before);
        nodes.push_back(node);
    }
    return nodes;
}

std::vector<ZVMenuNode*> const& MenuOutlineTree::childrenOf(ZVMenuNode* node) const { return node ? [node children] : m_roots; }

ZVMenuNode* MenuOutlineTree::nodeOf(Uuid const& id) const
{
    auto const found = m_nodes.find(id);
    return found == m_nodes.end() ? nil : found->second;
}

MenuItem const* MenuOutlineTree::itemOf(ZVMenuNode* node) const
{
    auto const found = node ? m_items.find([node identity]) : m_items.end();
    return found == m_items.end() ? nullptr : found->second;
}

} // namespace zv
