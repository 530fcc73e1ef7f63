#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/desk/ModalWindows.h"

#import <UniformTypeIdentifiers/UniformTypeIdentifiers.h>

namespace zv {

namespace {

class MacFilePanels : public FilePanels {
public:
    std::vector<Url> chooseToOpen(FilePanelQuestion const& question) override
    {
        NSOpenPanel* const panel = [NSOpenPanel openPanel];
        bool const isDocument = question.kind == FilePanelKind::menuDocument;
        [panel setTitle:toNSString(question.title)];
        [panel setMessage:toNSString(question.title)]; // panels show no title of their own any more
        [panel setCanChooseFiles:question.kind != FilePanelKind::folder];
        [panel setCanChooseDirectories:!isDocument];
        [panel setAllowsMultipleSelection:!isDocument];
        [panel setResolvesAliases:isDocument];
        if (isDocument)
            [panel setAllowedContentTypes:[NSArray arrayWithObject:[UTType typeWithIdentifier:@"com.apple.property-list"]]];
        bringToFront(panel);
        if ([panel runModal] != NSModalResponseOK)
            return {};
        std::vector<Url> chosen;
        for (NSURL* url in [panel URLs])
            chosen.push_back(fromNSURL(url));
        return chosen;
    }

    std::optional<Url> chooseToSave(std::string const& title, std::string const& suggestedName) override
    {
        NSSavePanel* const panel = [NSSavePanel savePanel];
        [panel setTitle:toNSString(title)];
        [panel setMessage:toNSString(title)];
        [panel setNameFieldStringValue:toNSString(suggestedName)];
        bringToFront(panel);
        if ([panel runModal] != NSModalResponseOK)
            return std::nullopt;
        return fromNSURL([panel URL]);
    }
};

} // namespace

std::unique_ptr<FilePanels> makeFilePanels() { return std::make_unique<MacFilePanels>(); }

} // namespace zv
