#include "app/shell/StatusItemJoints.h"

namespace zv {

void HotkeysJoint::setTriggerHandlers(std::function<void(Uuid const&)> item, std::function<void(Url const&)> file)
{
    m_center.onTrigger = [item = std::move(item), file = std::move(file)](HotkeyTarget const& target) {
        if (auto const* id = target.itemID())
            item(*id);
        else if (auto const* url = target.fileURL())
            file(*url);
    };
}

} // namespace zv
