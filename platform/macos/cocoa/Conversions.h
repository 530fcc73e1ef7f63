#pragma once

#import <Cocoa/Cocoa.h>

#include "base/PropertyList.h"
#include "base/Result.h"
#include "base/Url.h"

#include <functional>
#include <string>
#include <string_view>

NS_ASSUME_NONNULL_BEGIN

/// Conversions between our values and the system's. Any thread.
namespace zv {

/// Never nil: bytes that are not UTF-8 become replacement characters.
NSString* toNSString(std::string_view text);
std::string fromNSString(NSString* _Nullable text); ///< empty for nil

/// Makes a file URL from its path's bytes; nil for an address that the system cannot read.
NSURL* _Nullable toNSURL(Url const& url);
Url fromNSURL(NSURL* url);

NSData* toNSData(std::vector<std::byte> const& bytes);
std::vector<std::byte> fromNSData(NSData* _Nullable data); ///< empty for nil

/// Nil for a value that holds a text that is not UTF-8.
id _Nullable toFoundation(PropertyList const& value);
/// Nothing for an object that is no property-list value.
std::optional<PropertyList> fromFoundation(id _Nullable object);

/// The error's localized description, or a sentence that says there is none.
std::string describe(NSError* _Nullable error);
/// Made from the return value and the error of a method of the system.
Result<void> resultOf(bool succeeded, NSError* _Nullable error);

/// Runs the work on the main thread in a later turn, menu tracking and modal panels included.
/// Its captured objects are released there as well, whichever thread asked.
void performOnMain(std::function<void()> work);

} // namespace zv

NS_ASSUME_NONNULL_END
