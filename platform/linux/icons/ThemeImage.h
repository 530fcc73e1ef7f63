#pragma once

#include "platform/desk/Image.h"

#include <QIcon>

namespace zv {

/// A picture that this front end draws. Main thread only.
class ThemeImage : public Image {
public:
    [[nodiscard]] virtual QIcon icon() const = 0;
    /// Whether icon() answers without fetching.
    [[nodiscard]] virtual bool isReady() const = 0;
};

} // namespace zv
