#include "platform/linux/compose/DesktopScale.h"

#include "platform/linux/icons/IconTheme.h"
#include "platform/linux/looks/DesktopLook.h"

namespace zv {

int desktopScale(xcb_connection_t* connection) { return scaleBesideDots(publishedSettings(connection)); }

} // namespace zv
