#pragma once

#include "platform/desk/Canvas.h"

#include <QImage>
#include <QPainterPath>
#include <QPointF>

#include <memory>
#include <optional>

namespace zv {

/// The shape of our laurel, which on Linux is the logo at the panel's left end.
class LaurelMask : public Mask {
public:
    LaurelMask();
    [[nodiscard]] QPainterPath const& path() const { return m_path; }

private:
    QPainterPath m_path;
};

/// Draws onto a picture. The logo's clip is placed over the panel's own picture and at its size,
/// not where another system has its logo.
class LogoCanvas : public Canvas {
public:
    /// `centre` in the image's pixels; `scale` is the number of pixels a point.
    LogoCanvas(QImage& image, QPointF centre, double scale);

    std::shared_ptr<Mask const> logoMask() override;
    void saveState() override;
    void restoreState() override;
    void clipToMask(Mask const& mask, Rect const& rect) override;
    void setFillColor(Color const& color) override;
    void fill(Rect const& rect) override;

    /// The clip of the logo in the view's points; nothing when nothing was drawn.
    [[nodiscard]] std::optional<Rect> logoRect() const { return m_hasDrawn ? std::optional(m_clipRect) : std::nullopt; }

private:
    [[nodiscard]] QRectF toImage(Rect const& rect) const;

    QImage& m_image;
    QPointF m_centre;
    double m_scale;
    QImage m_layer; ///< the fills since the clip was set
    QPainterPath m_clip;
    Rect m_clipRect;
    QColor m_color;
    bool m_hasDrawn = false;
};

} // namespace zv
