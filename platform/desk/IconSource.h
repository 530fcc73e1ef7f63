#pragma once

#include "base/Url.h"
#include "platform/desk/Image.h"

namespace zv {

/// The system's own pictures, 16 by 16 points. None of these waits for a disk or a
/// volume: a picture may get its contents after it was handed out. Main thread only.
class IconSource {
public:
    virtual ~IconSource() = default;
    /// The file's icon, or null when there is none. The places where the home system keeps
    /// its own applications ("/System/…") have an icon on every system.
    [[nodiscard]] virtual ImageRef fileIcon(Url const& file) = 0;
    /// This computer's picture, by its model where that is known.
    [[nodiscard]] virtual ImageRef computerIcon() = 0;
    [[nodiscard]] virtual ImageRef folderIcon() = 0;
    [[nodiscard]] virtual ImageRef networkIcon() = 0;
    /// This program's own icon.
    [[nodiscard]] virtual ImageRef applicationIcon() = 0;
};

} // namespace zv
