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
        bool const isImage = question.kind == FilePanelKind::image;
        bool const isDocument = isImage || question.kind == FilePanelKind::menuDocument;
        panel.title = toNSString(question.title);
        panel.message = toNSString(question.title); // panels show no title of their own any more
        panel.canChooseFiles = question.kind != FilePanelKind::folder;
        panel.canChooseDirectories = !isDocument;
        panel.allowsMultipleSelection = !isDocument;
        panel.resolvesAliases = isDocument;
        if (isDocument)
            panel.allowedContentTypes = @[ [UTType typeWithIdentifier:isImage ? @"public.image" : @"com.apple.property-list"] ];
        bringToFront(panel);
        if ([panel runModal] != NSModalResponseOK)
            return {};
        std::vector<Url> chosen;
        for (NSURL* url in panel.URLs)
            chosen.push_back(fromNSURL(url));
        return chosen;
    }

    std::optional<Url> chooseToSave(std::string const& title, std::string const& suggestedName) override
    {
        NSSavePanel* const panel = [NSSavePanel savePanel];
        panel.title = toNSString(title);
        panel.message = toNSString(title);
        panel.nameFieldStringValue = toNSString(suggestedName);
        bringToFront(panel);
        if ([panel runModal] != NSModalResponseOK)
            return std::nullopt;
        return fromNSURL(panel.URL);
    }
};

} // namespace

std::unique_ptr<FilePanels> makeFilePanels() { return std::make_unique<MacFilePanels>(); }

} // namespace zv
