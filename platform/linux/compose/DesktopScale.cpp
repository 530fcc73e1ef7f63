#include "platform/linux/compose/DesktopScale.h"

#include "platform/linux/icons/IconTheme.h"
#include "platform/linux/looks/DesktopLook.h"

#include <xcb/xcb.h>

namespace zv {

int desktopScale()
{
    auto* const connection = xcb_connect(nullptr, nullptr);
    int const scale = xcb_connection_has_error(connection) == 0 ? scaleBesideDots(publishedSettings(connection)) : 1;
    xcb_disconnect(connection);
    return scale;
}

} // namespace zv
