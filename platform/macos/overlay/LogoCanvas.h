#pragma once

#import <Cocoa/Cocoa.h>
#import <CoreGraphics/CoreGraphics.h>

#include "platform/desk/Canvas.h"

NS_ASSUME_NONNULL_BEGIN

namespace zv {

/// Draws with the graphics context current while a view draws itself.
class LogoCanvas : public Canvas {
public:
    /// `context` outlives it.
    explicit LogoCanvas(NSGraphicsContext* context)
        : m_context(context)
    {
    }
    [[nodiscard]] std::shared_ptr<Mask const> logoMask() override;
    void saveState() override;
    void restoreState() override;
    void clipToMask(Mask const& mask, Rect const& rect) override;
    void setFillColor(Color const& color) override;
    void fill(Rect const& rect) override;

private:
    NSGraphicsContext* m_context;
};

} // namespace zv

NS_ASSUME_NONNULL_END
