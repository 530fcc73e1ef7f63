#include "platform/linux/windows/QtAlerts.h"

#include "base/MainThread.h"
#include "platform/linux/windows/AlertDialog.h"

namespace zv {

std::size_t QtAlerts::run(Alert const& alert)
{
    assertMainThread();
    AlertDialog dialog(alert);
    dialog.exec();
    return dialog.chosen();
}

} // namespace zv
