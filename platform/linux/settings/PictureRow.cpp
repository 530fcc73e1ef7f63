#include "platform/linux/settings/PictureRow.h"

#include "app/settings/SettingsTexts.h"
#include "platform/linux/icons/MenuImages.h"
#include "platform/linux/settings/FlowLayout.h"
#include "platform/linux/settings/PictureGrid.h"
#include "platform/linux/settings/SettingsButton.h"
#include "platform/linux/settings/ShownText.h"

#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QMimeData>
#include <QMouseEvent>

namespace zv {

namespace {

constexpr int pictureSize = 32;
constexpr int wellSize = 48;

/// The first file among what is dragged.
std::optional<Url> fileIn(QMimeData const& data)
{
    for (auto const& url : data.urls()) {
        if (url.isLocalFile())
            return Url::fromPath(QFile::encodeName(url.toLocalFile()).toStdString());
    }
    return std::nullopt;
}

} // namespace

PictureWell::PictureWell()
{
    setFixedSize(wellSize, wellSize);
    setAlignment(Qt::AlignCenter);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setAcceptDrops(true);
}

/// Copies, whatever the source would rather do: the file stays where it is.
void PictureWell::dragEnterEvent(QDragEnterEvent* event)
{
    if (!fileIn(*event->mimeData()) || !event->possibleActions().testFlag(Qt::CopyAction))
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void PictureWell::dropEvent(QDropEvent* event)
{
    auto const file = fileIn(*event->mimeData());
    if (!file || !onDropped)
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    onDropped(*file);
}

void PictureWell::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->pos()) && onClicked)
        onClicked();
}

PictureRow::PictureRow(SettingsModels& models)
    : m_models(models)
    , m_id(Uuid::random())
    , m_well(new PictureWell)
    , m_reset(nullptr)
{
    auto const& texts = models.pictures().texts();
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_well, 0, Qt::AlignTop);
    auto* buttons = new FlowLayout;
    addButton(*buttons, texts.choose, texts.chooseHelp, [this] { openGrid(); });
    addButton(*buttons, texts.image, texts.imageHelp, [this] { m_models.pictures().chooseImage(m_id); });
    m_reset = addButton(*buttons, texts.reset, texts.resetHelp, [this] { m_models.pictures().reset(m_id); });
    line->addLayout(buttons, 1);
    m_well->setToolTip(text(texts.wellHelp));
    m_well->setAccessibleDescription(text(texts.wellHelp));
    m_well->onDropped = [this](Url const& file) { m_models.pictures().takeImage(m_id, file); };
    m_well->onClicked = [this] { openGrid(); };
}

QPushButton* PictureRow::addButton(QLayout& line, std::string const& title, std::string const& help, std::function<void()> act)
{
    auto* button = settingsButton(text(title));
    button->setToolTip(text(help));
    button->setAccessibleDescription(text(help));
    connect(button, &QPushButton::clicked, this, [act = std::move(act)] { act(); });
    line.addWidget(button);
    return button;
}

void PictureRow::show(MenuItem const& item, InspectorFields const& fields)
{
    m_id = item.id;
    m_icon = fields.pictureIcon;
    m_well->setPixmap(largePictureOf(m_models.iconOf(item), pictureSize, devicePixelRatioF()));
    m_well->setAccessibleName(text(settingsTexts::withValue(m_models.pictures().texts().picture, fields.picture)));
    m_reset->setEnabled(fields.hasOwnPicture);
}

void PictureRow::openGrid()
{
    auto* grid = new PictureGrid(m_models.pictures(), m_icon, window());
    grid->onChosen = [this, id = m_id](std::string const& name) { m_models.pictures().takeIcon(id, name); };
    grid->open();
}

} // namespace zv
