#import "platform/macos/overlay/LogoCanvas.h"

#include <cmath>
#include <cstdint>
#include <vector>

namespace zv {

namespace {

constexpr double symbolPointSize = 16;
/// Pixels a point: finer than any screen, because the mask is fitted into a fixed rectangle.
constexpr double maskScale = 4;
constexpr std::size_t bytesOfPixel = 4;
constexpr std::size_t alphaByte = 3;

struct Pixels {
    std::size_t width = 0;
    std::size_t height = 0;
    std::vector<std::uint8_t> bytes;
};

NSRect toNSRect(Rect const& rect) { return NSMakeRect(rect.x, rect.y, rect.width, rect.height); }

NSImage* logoSymbol()
{
    NSImage* const symbol = [NSImage imageWithSystemSymbolName:@"apple.logo" accessibilityDescription:nil];
    return [symbol imageWithSymbolConfiguration:[NSImageSymbolConfiguration configurationWithPointSize:symbolPointSize weight:NSFontWeightRegular]];
}

void draw(NSImage* image, CGContextRef bitmap)
{
    CGContextScaleCTM(bitmap, maskScale, maskScale);
    [NSGraphicsContext saveGraphicsState];
    [NSGraphicsContext setCurrentContext:[NSGraphicsContext graphicsContextWithCGContext:bitmap flipped:NO]];
    NSSize const size = image.size;
    [image drawInRect:NSMakeRect(0, 0, size.width, size.height) fromRect:NSZeroRect operation:NSCompositingOperationSourceOver fraction:1];
    [NSGraphicsContext restoreGraphicsState];
}

Pixels coloured(NSImage* image)
{
    NSSize const size = image.size;
    Pixels pixels { static_cast<std::size_t>(std::ceil(size.width * maskScale)), static_cast<std::size_t>(std::ceil(size.height * maskScale)), {} };
    pixels.bytes.resize(pixels.width * pixels.height * bytesOfPixel);
    CGColorSpaceRef const space = CGColorSpaceCreateWithName(kCGColorSpaceSRGB);
    CGContextRef const bitmap = CGBitmapContextCreate(
        pixels.bytes.data(), pixels.width, pixels.height, 8, pixels.width * bytesOfPixel, space, static_cast<std::uint32_t>(kCGImageAlphaPremultipliedLast));
    CGColorSpaceRelease(space);
    if (!bitmap)
        return {};
    draw(image, bitmap);
    CGContextRelease(bitmap);
    return pixels;
}

/// A mask as CGContextClipToMask() wants it: grey without alpha, white where it lets through.
CGImageRef greyOfAlpha(Pixels const& pixels)
{
    std::vector<std::uint8_t> grey(pixels.width * pixels.height);
    for (std::size_t i = 0; i < grey.size(); ++i)
        grey[i] = pixels.bytes[i * bytesOfPixel + alphaByte];
    CGColorSpaceRef const space = CGColorSpaceCreateDeviceGray();
    CGContextRef const bitmap
        = CGBitmapContextCreate(grey.data(), pixels.width, pixels.height, 8, pixels.width, space, static_cast<std::uint32_t>(kCGImageAlphaNone));
    CGColorSpaceRelease(space);
    if (!bitmap)
        return nullptr;
    CGImageRef const image = CGBitmapContextCreateImage(bitmap);
    CGContextRelease(bitmap);
    return image;
}

class GreyMask : public Mask {
public:
    /// Takes ownership of the image.
    explicit GreyMask(CGImageRef image)
        : m_image(image)
    {
    }
    ~GreyMask() override { CGImageRelease(m_image); }
    [[nodiscard]] CGImageRef image() const { return m_image; }

private:
    CGImageRef m_image;
};

std::shared_ptr<Mask const> makeLogoMask()
{
    NSImage* const symbol = logoSymbol();
    if (!symbol)
        return nullptr;
    auto const pixels = coloured(symbol);
    CGImageRef const image = pixels.bytes.empty() ? nullptr : greyOfAlpha(pixels);
    return image ? std::make_shared<GreyMask>(image) : nullptr;
}

} // namespace

std::shared_ptr<Mask const> LogoCanvas::logoMask()
{
    static auto const mask = makeLogoMask();
    return mask;
}

void LogoCanvas::saveState() { CGContextSaveGState(m_context.CGContext); }

void LogoCanvas::restoreState() { CGContextRestoreGState(m_context.CGContext); }

void LogoCanvas::clipToMask(Mask const& mask, Rect const& rect)
{
    CGContextClipToMask(m_context.CGContext, CGRectMake(rect.x, rect.y, rect.width, rect.height), static_cast<GreyMask const&>(mask).image());
}

void LogoCanvas::setFillColor(Color const& color) { [[NSColor colorWithSRGBRed:color.red green:color.green blue:color.blue alpha:color.alpha] setFill]; }

void LogoCanvas::fill(Rect const& rect) { NSRectFillUsingOperation(toNSRect(rect), m_context.compositingOperation); }

} // namespace zv
