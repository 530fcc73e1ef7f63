#import "platform/macos/settings/PictureRow.h"

#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/FileDropView.h"
#import "platform/macos/desk/Images.h"

#include "app/settings/SettingsTexts.h"

namespace zv {

namespace {

constexpr double wellSize = 44;
constexpr double pictureSize = 32;

NSImageView* pictureWell(PictureTexts const& texts)
{
    NSImageView* const well = [[NSImageView alloc] initWithFrame:NSMakeRect(0, 0, wellSize, wellSize)];
    well.imageFrameStyle = NSImageFrameGrayBezel;
    well.toolTip = toNSString(texts.wellHelp);
    well.accessibilityHelp = toNSString(texts.wellHelp);
    setWidth(well, wellSize);
    [well.heightAnchor constraintEqualToConstant:wellSize].active = YES;
    return well;
}

} // namespace

PictureRow::PictureRow(SettingsModels& models)
    : m_models(models)
    , m_id(Uuid::random())
    , m_well(pictureWell(models.pictures().texts()))
{
    auto const& texts = models.pictures().texts();
    auto const button
        = [this](std::string const& title, std::string const& help, std::function<void()> act) { return pushButton(title, help, m_actions, std::move(act)); };
    NSView* const choose = button(texts.choose, texts.chooseHelp, [this] { openGrid(); });
    NSView* const image = button(texts.image, texts.imageHelp, [this] { m_models.pictures().chooseImage(m_id); });
    m_reset = button(texts.reset, texts.resetHelp, [this] { m_models.pictures().reset(m_id); });
    [ZVFileDropView cover:m_well dropped:[this](std::vector<Url> const& files) { m_models.pictures().takeImage(m_id, files.front()); }];
    m_view = stack(Direction::row, { m_well, stack(Direction::column, { stack(Direction::row, { choose, image }), m_reset }) });
}

void PictureRow::show(MenuItem const& item, InspectorFields const& fields)
{
    m_id = item.id;
    m_icon = fields.pictureIcon;
    m_well.image = enlarged(m_models.iconOf(item), pictureSize);
    m_well.accessibilityLabel = toNSString(settingsTexts::withValue(m_models.pictures().texts().picture, fields.picture));
    m_reset.enabled = fields.hasOwnPicture ? YES : NO;
}

void PictureRow::openGrid()
{
    auto& pictures = m_models.pictures();
    m_grid = [[ZVPictureGrid alloc] initWithPictures:pictures current:m_icon chosen:[&pictures, id = m_id](auto const& name) { pictures.takeIcon(id, name); }];
    [m_grid openOver:m_view.window];
}

} // namespace zv
