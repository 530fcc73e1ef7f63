#include "platform/linux/menu/MenuPicture.h"

#include <QMenu>
#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>

#include <utility>

namespace zv {

MenuPicture::MenuPicture(QMenu& window, std::function<bool()> isPlain)
    : m_window(window)
    , m_isPlain(std::move(isPlain))
{
}

bool MenuPicture::isFirst(QPaintEvent const& event) const { return m_awaitsPaint && event.region() == QRegion(m_window.rect()) && !m_isPosing; }

bool MenuPicture::isCurrent() const
{
    auto const scale = m_window.devicePixelRatioF();
    bool const fits = m_picture.devicePixelRatio() == scale && m_picture.size() == (QSizeF(m_window.size()) * scale).toSize();
    return !m_picture.isNull() && !m_window.activeAction() && fits;
}

void MenuPicture::paint() const { QPainter(&m_window).drawPixmap(0, 0, m_picture); }

void MenuPicture::firstIsPainted()
{
    m_awaitsPaint = false;
    m_isJustPainted = true;
    QMetaObject::invokeMethod(
        &m_window,
        [this] {
            m_isJustPainted = false;
            take();
        },
        Qt::QueuedConnection);
}

void MenuPicture::take()
{
    if (m_isPlain() && !isCurrent())
        takeUnseen();
}

void MenuPicture::takeUnseen()
{
    QScopedValueRollback const posing(m_isPosing, true);
    m_picture = m_window.grab();
}

bool MenuPicture::isUpdateDone() { return std::exchange(m_awaitsUpdate, false) && !m_awaitsPaint; }

} // namespace zv
