#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"

#include <algorithm>
#include <sys/stat.h>

namespace zv {

namespace {

/// Where the system keeps the names of its symbols, since macOS 11; no interface lists them. The keys of "symbols" are the
/// names.
NSString* const symbolNames = @"/System/Library/CoreServices/CoreGlyphs.bundle/Contents/Resources/name_availability.plist";

/// What to choose from where they are not there: some that every system has since macOS 11.
constexpr char const* usualSymbols[] = { "airplane", "alarm", "archivebox", "bag", "ball.fill", "bandage", "bell", "bolt", "book", "bookmark", "briefcase",
    "bubble.left", "calendar", "camera", "car", "cart", "clock", "cloud", "command", "creditcard", "cube", "desktopcomputer", "doc", "doc.text", "envelope",
    "eye", "film", "flag", "flame", "folder", "folder.fill", "gamecontroller", "gear", "gift", "globe", "hammer", "headphones", "heart", "house", "key",
    "keyboard", "leaf", "lightbulb", "link", "lock", "magnifyingglass", "map", "mic", "moon", "music.note", "network", "paintbrush", "paperclip", "pencil",
    "person", "phone", "photo", "pin", "play", "printer", "puzzlepiece", "scissors", "server.rack", "star", "sun.max", "tag", "terminal", "trash", "tray", "tv",
    "umbrella", "video", "wand.and.stars", "wifi", "wrench" };

PictureSource::Names namesOfSymbols()
{
    NSDictionary* const listed = [NSDictionary dictionaryWithContentsOfFile:symbolNames];
    id const symbols = [listed objectForKey:@"symbols"];
    if (![symbols isKindOfClass:[NSDictionary class]])
        return { std::begin(usualSymbols), std::end(usualSymbols) };
    PictureSource::Names names;
    for (NSString* name in [(NSDictionary*)symbols allKeys])
        names.push_back(fromNSString(name));
    return names;
}

/// Pipes would be read for ever.
bool isReadable(std::string const& path)
{
    constexpr off_t mostBytes = off_t { 32 } << 20;
    struct stat status { };
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && status.st_size <= mostBytes;
}

NSBitmapImageRep* drawnSmall(NSImage* image)
{
    double const scale = std::min(1.0, PictureSource::mostPixels / std::max({ image.size.width, image.size.height, 1.0 }));
    NSInteger const width = std::max<NSInteger>(1, std::lround(image.size.width * scale));
    NSInteger const height = std::max<NSInteger>(1, std::lround(image.size.height * scale));
    NSBitmapImageRep* const bitmap = [[NSBitmapImageRep alloc] initWithBitmapDataPlanes:nil
                                                                             pixelsWide:width
                                                                             pixelsHigh:height
                                                                          bitsPerSample:8
                                                                        samplesPerPixel:4
                                                                               hasAlpha:YES
                                                                               isPlanar:NO
                                                                         colorSpaceName:NSCalibratedRGBColorSpace
                                                                            bytesPerRow:0
                                                                           bitsPerPixel:0];
    [NSGraphicsContext saveGraphicsState];
    NSGraphicsContext.currentContext = [NSGraphicsContext graphicsContextWithBitmapImageRep:bitmap];
    [image drawInRect:NSMakeRect(0, 0, width, height) fromRect:NSZeroRect operation:NSCompositingOperationSourceOver fraction:1];
    [NSGraphicsContext restoreGraphicsState];
    return bitmap;
}

std::optional<PictureSource::Png> shrunk(Url const& file)
{
    NSImage* const image = isReadable(file.path()) ? [[NSImage alloc] initWithContentsOfFile:toNSURL(file).path] : nil;
    if (!image || ![image isValid])
        return std::nullopt;
    NSData* const data = [drawnSmall(image) representationUsingType:NSBitmapImageFileTypePNG properties:@ {}];
    if (!data)
        return std::nullopt;
    auto const* bytes = static_cast<std::byte const*>(data.bytes);
    return PictureSource::Png(bytes, bytes + data.length);
}

class SymbolsAndImages : public PictureSource {
public:
    explicit SymbolsAndImages(Tasks& tasks)
        : m_tasks(tasks)
    {
    }
    void listNames(std::function<void(Names)> use) override { m_tasks.inBackground(TaskPriority::user, namesOfSymbols, std::move(use)); }
    /// On a thread of its own: the file may be anywhere.
    void shrink(Url const& file, std::function<void(std::optional<Png>)> use) override
    {
        m_tasks.runDetached([file, use = std::move(use)]() -> std::function<void()> {
            auto png = shrunk(file);
            return [use, png = std::move(png)] { use(png); };
        });
    }

private:
    Tasks& m_tasks;
};

} // namespace

std::unique_ptr<PictureSource> makePictureSource(Tasks& tasks) { return std::make_unique<SymbolsAndImages>(tasks); }

} // namespace zv
