#pragma once

#import <Cocoa/Cocoa.h>

#include "app/model/MenuItem.h"

#include <map>
#include <set>
#include <vector>

NS_ASSUME_NONNULL_BEGIN

/// Stands for an item in the outline, which tells its rows apart by object: an item that
/// stays keeps its node, and so stays open and selected.
@interface ZVMenuNode : NSObject {
    zv::Uuid _identity;
    __unsafe_unretained ZVMenuNode* _Nullable _parent; // the tree keeps all nodes
    std::vector<ZVMenuNode*> _children;
}
- (instancetype)initWithIdentity:(zv::Uuid const&)identity;
- (zv::Uuid const&)identity;
@property (nonatomic, unsafe_unretained, nullable) ZVMenuNode* parent; ///< nil at the top level
- (std::vector<ZVMenuNode*>&)children;
@end

namespace zv {

/// The nodes of the whole menu.
class MenuOutlineTree {
public:
    void lay(std::vector<MenuItem> const& items);
    [[nodiscard]] std::vector<ZVMenuNode*> const& childrenOf(ZVMenuNode* _Nullable node) const;
    /// The item's node; nil without one.
    [[nodiscard]] ZVMenuNode* _Nullable nodeOf(Uuid const& id) const;
    /// The node's item; null when it is no longer among the items.
    [[nodiscard]] MenuItem const* _Nullable itemOf(ZVMenuNode* _Nullable node) const;
    /// Drops the pointers to the store's items, which have changed.
    void forgetItems() { m_items.clear(); }

private:
    std::vector<ZVMenuNode*> nodesFor(std::vector<MenuItem> const& items, ZVMenuNode* _Nullable parent, std::map<Uuid, ZVMenuNode*>& before);

    std::vector<ZVMenuNode*> m_roots;
    std::map<Uuid, ZVMenuNode*> m_nodes;
    std::map<Uuid, MenuItem const*> m_items;
};

} // namespace zv

NS_ASSUME_NONNULL_END
