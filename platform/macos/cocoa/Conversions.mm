#import "platform/macos/cocoa/Conversions.h"

#include "platform/text/Text.h"

#include <utility>

/// Work for the main thread. Empty after its run, as the thread that asked may still hold it.
@interface ZVMainThreadCall : NSObject {
    std::function<void()> _work;
}
- (instancetype)initWithFunction:(std::function<void()>)work;
- (void)run;
@end

@implementation ZVMainThreadCall
- (instancetype)initWithFunction:(std::function<void()>)work
{
    if ((self = [super init]))
        _work = std::move(work);
    return self;
}
- (void)run
{
    std::exchange(_work, nullptr)();
}
@end

namespace zv {

NSString* toNSString(std::string_view text)
{
    NSString* string = [[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding];
    if (string)
        return string;
    std::string const valid = withValidUtf8(text);
    return [[NSString alloc] initWithBytes:valid.data() length:valid.size() encoding:NSUTF8StringEncoding];
}

std::string fromNSString(NSString* text)
{
    NSData* const bytes = [text dataUsingEncoding:NSUTF8StringEncoding allowLossyConversion:YES];
    return { static_cast<char const*>(bytes.bytes), bytes.length };
}

NSURL* toNSURL(Url const& url)
{
    if (!url.isFile())
        return [NSURL URLWithString:toNSString(url.toString())];
    std::string const path = url.path();
    NSString* const string = [NSFileManager.defaultManager stringWithFileSystemRepresentation:path.data() length:path.size()];
    return [NSURL fileURLWithPath:string ? string : toNSString(path)];
}

Url fromNSURL(NSURL* url)
{
    if (url.isFileURL)
        return Url::fromPath(fromNSString(url.path));
    auto const parsed = Url::parse(fromNSString(url.absoluteString));
    return parsed ? *parsed : Url::fromPath("/");
}

NSData* toNSData(std::vector<std::byte> const& bytes) { return [NSData dataWithBytes:bytes.data() length:bytes.size()]; }

std::vector<std::byte> fromNSData(NSData* data)
{
    auto const* begin = static_cast<std::byte const*>(data.bytes);
    return data ? std::vector<std::byte>(begin, begin + data.length) : std::vector<std::byte>();
}

namespace {

struct FoundationMaker {
    id operator()(std::string const& value) const { return isValidUtf8(value) ? toNSString(value) : nil; }
    id operator()(std::int64_t value) const { return [NSNumber numberWithLongLong:value]; }
    id operator()(std::uint64_t value) const { return [NSNumber numberWithUnsignedLongLong:value]; }
    id operator()(double value) const { return [NSNumber numberWithDouble:value]; }
    id operator()(bool value) const { return [NSNumber numberWithBool:value]; }
    id operator()(PropertyListDate value) const { return [NSDate dateWithTimeIntervalSinceReferenceDate:value.secondsSinceReference]; }
    id operator()(PropertyListData const& value) const { return toNSData(value); }
    id operator()(PropertyListArray const& value) const
    {
        NSMutableArray* const array = [NSMutableArray array];
        for (auto const& element : value) {
            id const object = toFoundation(element);
            if (!object)
                return nil;
            [array addObject:object];
        }
        return array;
    }
    id operator()(PropertyListDictionary const& value) const
    {
        NSMutableDictionary* const dictionary = [NSMutableDictionary dictionary];
        for (auto const& [key, element] : value) {
            id const object = toFoundation(element);
            if (!object || !isValidUtf8(key))
                return nil;
            [dictionary setObject:object forKey:toNSString(key)];
        }
        return dictionary;
    }
};

/// Goes by the number's own type: booleans are chars, reals floats or doubles.
PropertyList fromNumber(NSNumber* number)
{
    // The system's two booleans are single objects: a char of 1 is neither.
    if (number == [NSNumber numberWithBool:YES] || number == [NSNumber numberWithBool:NO])
        return number.boolValue != NO;
    switch (*number.objCType) {
    case 'f':
    case 'd':
        return number.doubleValue;
    case 'Q':
        return static_cast<std::uint64_t>(number.unsignedLongLongValue);
    default:
        return static_cast<std::int64_t>(number.longLongValue);
    }
}

std::optional<PropertyList> fromArray(NSArray* array)
{
    PropertyListArray values;
    values.reserve(array.count);
    for (id element in array) {
        auto value = fromFoundation(element);
        if (!value)
            return std::nullopt;
        values.push_back(std::move(*value));
    }
    return values;
}

/// Orders the entries by their keys' texts: the system's dictionaries have no order.
std::optional<PropertyList> fromDictionary(NSDictionary* dictionary)
{
    PropertyListDictionary values;
    for (NSString* key in [dictionary.allKeys sortedArrayUsingSelector:@selector(compare:)]) {
        auto value = fromFoundation([dictionary objectForKey:key]);
        if (!value)
            return std::nullopt;
        values.set(fromNSString(key), std::move(*value));
    }
    return values;
}

} // namespace

id toFoundation(PropertyList const& value) { return std::visit(FoundationMaker(), value.value()); }

std::optional<PropertyList> fromFoundation(id object)
{
    if ([object isKindOfClass:[NSString class]])
        return PropertyList(fromNSString(object));
    if ([object isKindOfClass:[NSNumber class]])
        return fromNumber(object);
    if ([object isKindOfClass:[NSDate class]])
        return PropertyList(PropertyListDate { ((NSDate*)object).timeIntervalSinceReferenceDate });
    if ([object isKindOfClass:[NSData class]])
        return PropertyList(fromNSData(object));
    if ([object isKindOfClass:[NSArray class]])
        return fromArray(object);
    if ([object isKindOfClass:[NSDictionary class]])
        return fromDictionary(object);
    return std::nullopt;
}

std::string describe(NSError* error)
{
    NSString* const text = error.localizedDescription;
    return text ? fromNSString(text) : std::string("The system gives no reason.");
}

Result<void> resultOf(bool succeeded, NSError* error)
{
    if (succeeded)
        return {};
    return Failure { describe(error) };
}

void performOnMain(std::function<void()> work)
{
    ZVMainThreadCall* const call = [[ZVMainThreadCall alloc] initWithFunction:std::move(work)];
    NSArray* const modes = @[ NSRunLoopCommonModes ];
    [call performSelectorOnMainThread:@selector(run) withObject:nil waitUntilDone:NO modes:modes];
}

} // namespace zv
