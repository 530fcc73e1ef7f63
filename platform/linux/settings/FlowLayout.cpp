#include "platform/linux/settings/FlowLayout.h"

#include <QStyle>
#include <QWidget>

namespace zv {

namespace {

constexpr int gap = 6;

} // namespace

FlowLayout::~FlowLayout() { qDeleteAll(m_items); }

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (auto const* item : m_items)
        size = size.expandedTo(item->minimumSize());
    return size;
}

void FlowLayout::setGeometry(QRect const& area)
{
    QLayout::setGeometry(area);
    (void)place(area, Placing::done);
}

/// The height that it takes.
int FlowLayout::place(QRect const& area, Placing placing) const
{
    auto const direction = parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    QPoint at = area.topLeft();
    int lineHeight = 0;
    for (auto* item : m_items) {
        auto const size = item->sizeHint();
        if (at.x() > area.x() && at.x() + size.width() > area.right() + 1) {
            at = { area.x(), at.y() + lineHeight + gap };
            lineHeight = 0;
        }
        if (placing == Placing::done)
            item->setGeometry(QStyle::visualRect(direction, area, { at, size }));
        at.rx() += size.width() + gap;
        lineHeight = std::max(lineHeight, size.height());
    }
    return at.y() + lineHeight - area.y();
}

} // namespace zv
