#pragma once

#include "platform/menubar/Screens.h"

#include <QObject>
#include <QRect>

namespace zv {

/// The screens as the toolkit knows them.
class ToolkitScreens : public QObject, public Screens {
    Q_OBJECT
public:
    ToolkitScreens();
    [[nodiscard]] std::vector<Rect> frames() const override;
};

/// Between the toolkit's coordinates, whose y grows downwards, and the program's.
[[nodiscard]] Rect screenRect(QRect const& rect);
[[nodiscard]] QRect toolkitRect(Rect const& rect);

} // namespace zv
