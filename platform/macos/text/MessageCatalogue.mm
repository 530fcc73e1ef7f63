#include "platform/macos/text/MessageCatalogue.h"

#include "base/Translation.h"
#include "platform/text/NumberText.h"

#import "platform/macos/cocoa/Conversions.h"

namespace zv {

namespace {

/// As packaging/macos/make-strings writes keys: the context, a bar, the English text.
NSString* keyOf(Sentence const& sentence)
{
    return toNSString(sentence.context ? std::string(sentence.context) + "|" + sentence.english : std::string(sentence.english));
}

std::string fromBundle(Sentence const& sentence, char const* many, unsigned long count)
{
    NSString* const key = keyOf(sentence);
    NSString* const found = [NSBundle.mainBundle localizedStringForKey:key value:nil table:nil];
    if ([found isEqualToString:key])
        return {};
    // With a table of plurals, the form for the number comes by formatting.
    return fromNSString(many ? [NSString localizedStringWithFormat:found, count] : found);
}

} // namespace

void useMessageCatalogue() { translateBy(fromBundle, localizedNumber); }

} // namespace zv
