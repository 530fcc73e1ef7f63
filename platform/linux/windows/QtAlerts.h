#pragma once

#include "platform/desk/Alerts.h"

namespace zv {

/// Alerts as dialogs of ours, above all windows.
class QtAlerts : public Alerts {
public:
    std::size_t run(Alert const& alert) override;
};

} // namespace zv
