#include "platform/linux/settings/EmptyText.h"

#include "platform/linux/settings/ShownText.h"

#include <QAbstractScrollArea>
#include <QPainter>

namespace zv {

namespace {

constexpr int margin = 16;

} // namespace

void paintEmptyText(QAbstractScrollArea& list, Sentence const& sentence)
{
    auto* const area = list.viewport();
    QPainter painter(area);
    painter.setPen(list.palette().color(QPalette::PlaceholderText));
    painter.drawText(area->rect().adjusted(margin, margin, -margin, -margin), Qt::AlignCenter | Qt::TextWordWrap, text(sentence));
}

} // namespace zv
