#pragma once

#include "platform/desk/Image.h"

#include <QIcon>
#include <QPixmap>

namespace zv {

/// A picture that this front end draws. Main thread only.
class ThemeImage : public Image {
public:
    [[nodiscard]] virtual QIcon icon() const = 0;
    /// Whether icon() answers without fetching.
    [[nodiscard]] virtual bool isReady() const = 0;
    /// Drawn anew in another size, for a window that shows it larger; null where there is nothing to draw.
    [[nodiscard]] virtual QPixmap drawnLarge(int size, qreal scale) const { return icon().pixmap(QSize(size, size), scale); }
};

} // namespace zv
