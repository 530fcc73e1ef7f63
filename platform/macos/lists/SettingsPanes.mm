#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

#include <map>

namespace zv {

namespace {

constexpr char const* urlPrefix = "x-apple.systempreferences:";

/// Titles of panes that ship their own in a table of another format.
std::map<std::string, std::string> const& knownTitles()
{
    static std::map<std::string, std::string> const titles { { "com.apple.wifi-settings-extension", "Wi-Fi" }, { "com.apple.BluetoothSettings", "Bluetooth" },
        { "com.apple.Network-Settings.extension", "Network" }, { "com.apple.Notifications-Settings.extension", "Notifications" },
        { "com.apple.Sound-Settings.extension", "Sound" }, { "com.apple.Focus-Settings.extension", "Focus" },
        { "com.apple.systempreferences.GeneralSettings", "General" }, { "com.apple.Appearance-Settings.extension", "Appearance" },
        { "com.apple.Accessibility-Settings.extension", "Accessibility" }, { "com.apple.ControlCenter-Settings.extension", "Control Center" },
        { "com.apple.Desktop-Settings.extension", "Desktop & Dock" }, { "com.apple.Displays-Settings.extension", "Displays" },
        { "com.apple.Wallpaper-Settings.extension", "Wallpaper" }, { "com.apple.Battery-Settings.extension", "Battery" },
        { "com.apple.Lock-Screen-Settings.extension", "Lock Screen" }, { "com.apple.Users-Groups-Settings.extension", "Users & Groups" },
        { "com.apple.Keyboard-Settings.extension", "Keyboard" }, { "com.apple.Trackpad-Settings.extension", "Trackpad" },
        { "com.apple.Print-Scan-Settings.extension", "Printers & Scanners" }, { "com.apple.settings.PrivacySecurity.extension", "Privacy & Security" },
        { "com.apple.Software-Update-Settings.extension", "Software Update" } };
    return titles;
}

NSDictionary* dictionaryAt(NSDictionary* dictionary, NSString* key)
{
    id const value = [dictionary objectForKey:key];
    return [value isKindOfClass:[NSDictionary class]] ? value : nil;
}

/// True for panes as below /System/Library/ExtensionKit/Extensions; ExtensionKit documents the first two
/// keys, no document the others.
bool isSettingsExtension(NSDictionary* information)
{
    NSDictionary* const attributes = dictionaryAt(information, @"EXAppExtensionAttributes");
    bool const isPane = [[attributes objectForKey:@"EXExtensionPointIdentifier"] isEqual:@"com.apple.Settings.extension.ui"];
    NSDictionary* const settings = dictionaryAt(attributes, @"SettingsExtensionAttributes");
    return isPane && [[settings objectForKey:@"allowsXAppleSystemPreferencesURLScheme"] boolValue];
}

std::string titleOf(NSBundle* bundle, std::string const& identifier)
{
    for (NSString* key in @[ @"CFBundleDisplayName", @"CFBundleName" ]) {
        id const localized = [bundle objectForInfoDictionaryKey:key];
        auto const known = knownTitles().find(identifier);
        // A pane without a table of its own is named after its file: our table reads better.
        if (known != knownTitles().end() && ![bundle.localizedInfoDictionary objectForKey:key])
            return known->second;
        if ([localized isKindOfClass:[NSString class]] && [localized length] > 0)
            return fromNSString(localized);
    }
    return identifier;
}

std::optional<SettingsPane> paneOf(NSURL* url)
{
    NSBundle* const bundle = [NSBundle bundleWithURL:url];
    auto const identifier = fromNSString(bundle.bundleIdentifier);
    bool const isOld = [url.pathExtension isEqualToString:@"prefPane"];
    if (identifier.empty() || (!isOld && !isSettingsExtension(bundle.infoDictionary)))
        return std::nullopt;
    auto const address = isOld ? std::optional(fromNSURL(url)) : Url::parse(urlPrefix + identifier);
    if (!address)
        return std::nullopt;
    return SettingsPane { identifier, titleOf(bundle, identifier), *address, fromNSURL(url), {} };
}

std::vector<SettingsPane> panesIn(NSString* folder, NSString* extension)
{
    NSFileManager* const files = [[NSFileManager alloc] init];
    NSURL* const place = [NSURL fileURLWithPath:folder.stringByExpandingTildeInPath];
    std::vector<SettingsPane> panes;
    for (NSURL* url in [files contentsOfDirectoryAtURL:place includingPropertiesForKeys:nil options:NSDirectoryEnumerationSkipsHiddenFiles error:nullptr]) {
        auto pane = [url.pathExtension isEqualToString:extension] ? paneOf(url) : std::nullopt;
        if (pane)
            panes.push_back(std::move(*pane));
    }
    return panes;
}

std::vector<SettingsPane> allPanes()
{
    std::vector<SettingsPane> panes = panesIn(@"/System/Library/ExtensionKit/Extensions", @"appex");
    for (NSString* folder in @[ @"/Library/PreferencePanes", @"~/Library/PreferencePanes" ]) {
        for (auto& pane : panesIn(folder, @"prefPane"))
            panes.push_back(std::move(pane));
    }
    return panes;
}

/// Reads some two hundred bundles, off the main thread: once before the first answer, then
/// again in the background after each later one.
class MacSettingsPanes : public SettingsPanes {
public:
    explicit MacSettingsPanes(Tasks& tasks)
        : m_tasks(tasks)
    {
    }

    void list(std::function<void(std::vector<SettingsPane>)> done) override
    {
        bool const isKnown = !m_cache->empty();
        if (isKnown)
            done(*m_cache);
        m_tasks.inBackground(TaskPriority::user, allPanes, [cache = m_cache, isKnown, done](std::vector<SettingsPane> panes) {
            *cache = panes;
            if (!isKnown)
                done(std::move(panes));
        });
    }

private:
    Tasks& m_tasks;
    std::shared_ptr<std::vector<SettingsPane>> m_cache = std::make_shared<std::vector<SettingsPane>>();
};

} // namespace

std::unique_ptr<SettingsPanes> makeSettingsPanes(Tasks& tasks) { return std::make_unique<MacSettingsPanes>(tasks); }

} // namespace zv
