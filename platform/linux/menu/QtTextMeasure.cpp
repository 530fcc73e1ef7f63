#include "platform/linux/menu/QtTextMeasure.h"

#include "platform/linux/menu/MenuStyle.h"
#include "platform/linux/menu/ShortcutText.h"

#include <QApplication>

namespace zv {

double QtTextMeasure::menuFontWidth(std::string_view text) const
{
    // Read each time: the user may choose another font while the program runs.
    QFontMetrics const metrics(QApplication::font("QMenu"));
    return metrics.horizontalAdvance(MenuStyle::shortenedTitle(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())), metrics));
}

double QtTextMeasure::shortcutWidth(std::string_view glyphs) const
{
    return QFontMetrics(QApplication::font("QMenu")).horizontalAdvance(shortcutKeysOfGlyphs(glyphs).text());
}

} // namespace zv
