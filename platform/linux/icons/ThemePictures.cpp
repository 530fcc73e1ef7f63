#include "platform/linux/icons/ThemePictures.h"

#include "platform/linux/icons/PictureFiles.h"
#include "platform/linux/icons/ThemeFolders.h"
#include "platform/linux/icons/UserThemes.h"

#include <QBuffer>
#include <QIcon>

#include <utility>

namespace zv {

namespace {

std::optional<PictureSource::Png> pngOf(QImage const& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (image.isNull() || !image.save(&buffer, "PNG"))
        return std::nullopt;
    auto const* begin = reinterpret_cast<std::byte const*>(bytes.constData());
    return PictureSource::Png(begin, begin + bytes.size());
}

} // namespace

void ThemePictures::listNames(std::function<void(Names)> use)
{
    auto const look = [theme = QIcon::themeName().toStdString(), paths = iconSearchPaths()] { return iconsOfTheme(theme, paths); };
    m_tasks.inBackground(TaskPriority::user, look, std::move(use));
}

/// On a thread of its own: the file may be anywhere.
void ThemePictures::shrink(Url const& file, std::function<void(std::optional<Png>)> use)
{
    m_tasks.runDetached([path = file.path(), use = std::move(use)] {
        auto png = pngOf(readPicture(path, mostPixels));
        return std::function<void()>([use, png = std::move(png)] { use(png); });
    });
}

} // namespace zv
