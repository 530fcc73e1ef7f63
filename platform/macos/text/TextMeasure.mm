#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"

namespace zv {

namespace {

class MenuFontMeasure : public TextMeasure {
public:
    double menuFontWidth(std::string_view text) const override { return [toNSString(text) sizeWithAttributes:m_attributes].width; }

private:
    NSDictionary<NSAttributedStringKey, id>* m_attributes = @ { NSFontAttributeName : [NSFont menuFontOfSize:0] };
};

} // namespace

std::unique_ptr<TextMeasure> makeTextMeasure() { return std::make_unique<MenuFontMeasure>(); }

} // namespace zv
