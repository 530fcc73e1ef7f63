#pragma once

#include "platform/desk/Forms.h"

namespace zv {

/// Forms as dialogs over the window in front.
class QtForms : public Forms {
public:
    std::optional<std::vector<FormField>> ask(Form const& form) override;
};

} // namespace zv
