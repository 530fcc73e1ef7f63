#include "platform/linux/toolkit/QtTextMeasure.h"

#include <QApplication>
#include <QFontMetricsF>

namespace zv {

double QtTextMeasure::menuFontWidth(std::string_view text) const
{
    // Read each time: the user may choose another font while the program runs.
    QFontMetricsF const metrics(QApplication::font("QMenu"));
    return metrics.horizontalAdvance(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

} // namespace zv
