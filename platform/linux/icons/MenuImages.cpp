#include "platform/linux/icons/MenuImages.h"

#include "platform/linux/icons/ThemeImage.h"

#include <QPixmap>

namespace zv {

bool isMenuIconReady(ImageRef const& image)
{
    auto const* themed = dynamic_cast<ThemeImage const*>(image.get());
    return !themed || themed->isReady();
}

QIcon menuIconOf(ImageRef const& image)
{
    auto const* themed = dynamic_cast<ThemeImage const*>(image.get());
    return themed ? themed->icon() : QIcon();
}

QPixmap largePictureOf(ImageRef const& image, int size, qreal scale)
{
    auto const* themed = dynamic_cast<ThemeImage const*>(image.get());
    return themed ? themed->drawnLarge(size, scale) : QPixmap();
}

QIcon const& blankMenuIcon()
{
    static QIcon const blank = [] {
        QPixmap pixmap(menuIconSize, menuIconSize);
        pixmap.fill(Qt::transparent);
        return QIcon(pixmap);
    }();
    return blank;
}

} // namespace zv
