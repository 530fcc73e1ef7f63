#pragma once

#import <Cocoa/Cocoa.h>

#include "platform/desk/Image.h"

#include <utility>

NS_ASSUME_NONNULL_BEGIN

namespace zv {

/// A system picture, drawn anew for each screen's scale.
class MacImage : public Image {
public:
    MacImage(NSImage* image, std::string name)
        : m_image(image)
        , m_name(std::move(name))
    {
    }
    [[nodiscard]] NSImage* image() const { return m_image; }
    [[nodiscard]] std::string name() const override { return m_name; }

private:
    NSImage* m_image;
    std::string m_name;
};

/// Nil for none.
inline NSImage* _Nullable toNSImage(ImageRef const& image) { return image ? std::static_pointer_cast<MacImage const>(image)->image() : nil; }

/// The same for a place where it is shown larger, in points.
inline NSImage* _Nullable enlarged(ImageRef const& image, double size)
{
    NSImage* const copy = [toNSImage(image) copy];
    copy.size = NSMakeSize(size, size);
    return copy;
}

} // namespace zv

NS_ASSUME_NONNULL_END
