#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/desk/Images.h"
#import "platform/macos/desk/SystemIconNames.h"
#import "platform/macos/files/LinkTargets.h"
#import "platform/macos/session/SystemValues.h"

#import <UniformTypeIdentifiers/UniformTypeIdentifiers.h>

#include <algorithm>
#include <sys/stat.h>

namespace zv {

namespace {

constexpr double iconSize = 16;

/// The largest rectangle of those proportions in the middle of the box.
NSRect fitted(NSSize size, NSRect box)
{
    double const longest = std::max({ size.width, size.height, 1.0 });
    double const width = box.size.width * size.width / longest;
    double const height = box.size.height * size.height / longest;
    return NSMakeRect(NSMidX(box) - width / 2, NSMidY(box) - height / 2, width, height);
}

/// Draws the picture at each use, so that it is sharp at every scale. A symbol keeps the colour of the text around it.
ImageRef menuSized(NSImage* source, std::string name)
{
    if (!source)
        return nullptr;
    BOOL (^const draw)(NSRect) = ^BOOL(NSRect rect) {
        [source drawInRect:fitted(source.size, rect) fromRect:NSZeroRect operation:NSCompositingOperationSourceOver fraction:1];
        return YES;
    };
    NSImage* const image = [NSImage imageWithSize:NSMakeSize(iconSize, iconSize) flipped:NO drawingHandler:draw];
    [image setTemplate:[source isTemplate]];
    return image ? std::make_shared<MacImage>(image, std::move(name)) : nullptr;
}

/// Pipes would hold up the menu for ever, large pictures for long.
bool isSmallFile(std::string const& path)
{
    constexpr off_t mostBytes = 1 << 20;
    struct stat status { };
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && status.st_size <= mostBytes;
}

/// The older preference panes name their picture themselves (Preference Pane Programming Guide, "NSPrefPaneIconFile").
NSImage* iconOfPreferencePane(NSString* path)
{
    if (![path.pathExtension isEqualToString:@"prefPane"])
        return nil;
    NSBundle* const pane = [NSBundle bundleWithPath:path];
    id const file = [pane objectForInfoDictionaryKey:@"NSPrefPaneIconFile"];
    NSString* const icon = [file isKindOfClass:[NSString class]] ? [pane pathForImageResource:file] : nil;
    return icon && isSmallFile(fromNSString(icon)) ? [[NSImage alloc] initWithContentsOfFile:icon] : nil;
}

/// Nil when the system has no picture of this model.
NSImage* iconOfModel()
{
    auto const model = systemText("hw.model");
    if (model.empty())
        return nil;
    UTType* const type = [UTType typeWithTag:toNSString(model) tagClass:@"com.apple.device-model-code" conformingToType:nil];
    return type && !type.isDynamic ? [NSWorkspace.sharedWorkspace iconForContentType:type] : nil;
}

NSImage* pictureWithoutFile(SystemIcon icon)
{
    switch (icon) {
    case SystemIcon::application:
        return NSApp.applicationIconImage;
    case SystemIcon::computer: {
        NSImage* const model = iconOfModel();
        return model ? model : [NSImage imageNamed:NSImageNameComputer];
    }
    case SystemIcon::folder:
        return [NSWorkspace.sharedWorkspace iconForContentType:UTTypeFolder];
    case SystemIcon::network:
        return [NSImage imageNamed:NSImageNameNetwork];
    default:
        return nil;
    }
}

/// A symbol of the system, as it is: it has the colour of the entry's text.
ImageRef symbolNamed(std::string_view name)
{
    NSImage* const symbol = [NSImage imageWithSystemSymbolName:toNSString(name) accessibilityDescription:nil];
    return symbol ? std::make_shared<MacImage>(symbol, std::string(name)) : nullptr;
}

/// Goes by the name alone; a name without an extension counts as a folder.
NSImage* iconOfName(NSString* extension)
{
    UTType* const type = extension.length == 0 ? UTTypeFolder : [UTType typeWithFilenameExtension:extension];
    return [NSWorkspace.sharedWorkspace iconForContentType:type ? type : UTTypeData];
}

class WorkspaceIcons : public IconSource {
public:
    ImageRef fileIcon(Url const& file) override
    {
        if (!file.isFile())
            return nullptr;
        if (leadsToRemoteVolume(file.path())) // not asked: it may not answer
            return menuSized(iconOfName(toNSString(file.lastPathComponent()).pathExtension), file.path());
        NSString* const path = toNSURL(file).path;
        if (!path || ![NSFileManager.defaultManager fileExistsAtPath:path])
            return nullptr;
        NSImage* const pane = iconOfPreferencePane(path);
        return menuSized(pane ? pane : [NSWorkspace.sharedWorkspace iconForFile:path], file.path());
    }
    ImageRef systemIcon(SystemIcon icon) override
    {
        auto const name = nameOfSystemIcon(icon);
        if (name.starts_with('/'))
            return fileIcon(Url::fromPath(name));
        auto const picture = menuSized(pictureWithoutFile(icon), std::string(name));
        return picture ? picture : symbolNamed(name);
    }
    ImageRef namedIcon(std::string const& name, ImageRef const& otherwise) override
    {
        auto symbol = menuSized([NSImage imageWithSystemSymbolName:toNSString(name) accessibilityDescription:nil], name);
        return symbol ? symbol : otherwise;
    }
    ImageRef imageIn(Url const& file, ImageRef const& otherwise) override
    {
        if (leadsToRemoteVolume(file.path()) || !isSmallFile(file.path()))
            return otherwise;
        auto image = menuSized([[NSImage alloc] initWithContentsOfFile:toNSURL(file).path], file.path());
        return image ? image : otherwise;
    }
};

} // namespace

std::unique_ptr<IconSource> makeIconSource() { return std::make_unique<WorkspaceIcons>(); }

} // namespace zv
