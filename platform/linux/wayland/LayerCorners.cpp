#include "platform/linux/wayland/LayerCorners.h"

#include "platform/linux/overlay/LogoCanvas.h"
#include "platform/linux/wayland/LayerSurface.h"
#include "platform/linux/wayland/ToolkitScreens.h"
#include "platform/linux/wayland/WaylandGlobals.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <functional>
#include <optional>

namespace zv {

namespace {

/// The colour of sway's own panel. Panels of such compositors are dark whatever the programs' colours are.
constexpr QRgb darkPanel = 0xFF323232;

/// The corner's window. What lies below it cannot be read, so the logo has a ground of its own, a panel's.
class CornerWidget : public QWidget {
public:
    CornerWidget(OverlayPanelContent& content, std::optional<QColor> ground)
        : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint)
        , m_content(content)
        , m_ground(std::move(ground))
    {
        setAttribute(Qt::WA_TranslucentBackground);
        setAttribute(Qt::WA_ShowWithoutActivating);
        auto const label = content.accessibilityLabel();
        setAccessibleName(QString::fromUtf8(label.data(), static_cast<qsizetype>(label.size())));
    }

protected:
    /// The content may destroy this: nothing of it is touched after that call.
    void mousePressEvent(QMouseEvent*) override { m_content.press(); }

    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(rect(), Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        QImage picture(size() * devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(m_ground.value_or(palette().color(QPalette::Window)));
        LogoCanvas canvas(picture, QPointF(picture.width(), picture.height()) / 2, devicePixelRatioF());
        m_content.draw(&canvas, height());
        if (canvas.logoRect())
            painter.drawImage(rect(), picture);
    }

private:
    OverlayPanelContent& m_content;
    std::optional<QColor> m_ground; ///< the toolkit's own without one
};

} // namespace

/// A corner on the screen that its frame is on.
class LayerCorner : public OverlayPanel {
public:
    LayerCorner(LayerCorners& all, Rect const& frame, OverlayPanelContent& content)
        : m_all(all)
        , m_content(content)
        , m_frame(frame)
    {
        m_all.m_corners.push_back(this);
    }
    ~LayerCorner() override
    {
        std::erase(m_all.m_corners, this);
        hide();
    }

    Rect frame() const override { return m_frame; }
    void setFrame(Rect const& frame) override
    {
        m_frame = frame;
        if (m_widget)
            show();
    }
    void show() override;
    void hide() override
    {
        m_role.reset();
        m_widget.reset();
    }
    void redraw() override
    {
        if (m_widget)
            m_widget->update();
    }
    [[nodiscard]] bool press(QPoint point)
    {
        bool const isHere = m_widget && m_widget->geometry().contains(point);
        if (isHere)
            m_content.press();
        return isHere;
    }

private:
    LayerCorners& m_all;
    OverlayPanelContent& m_content;
    Rect m_frame;
    std::unique_ptr<CornerWidget> m_widget;
    std::unique_ptr<LayerSurface> m_role;
};

/// Above panels there is but the layer above full-screen windows too: it is taken where these are
/// told, and the corner hides then. Elsewhere the one of the panels, above which the compositor puts it.
void LayerCorner::show()
{
    hide();
    auto const place = toolkitRect(m_frame);
    auto const* screen = QGuiApplication::screenAt(place.center());
    if (!screen)
        return;
    auto const shown = place.intersected(screen->geometry());
    bool const hasToplevels = m_all.m_globals.hasToplevels();
    m_widget = std::make_unique<CornerWidget>(m_content, hasToplevels ? std::optional(QColor(darkPanel)) : std::nullopt);
    m_widget->setGeometry(shown);
    m_widget->winId();
    m_role = std::make_unique<LayerSurface>(m_all.m_globals, *m_widget->windowHandle(),
        LayerSurface::Role { .layer = hasToplevels ? LayerSurface::Layer::overlay : LayerSurface::Layer::top,
            .edges = LayerSurface::topEdge | LayerSurface::leftEdge,
            .size = shown.size(),
            .purpose = "zanthe-vell-corner" });
    if (m_role->isConfigured())
        m_widget->show();
}

std::unique_ptr<OverlayPanel> LayerCorners::create(Rect const& frame, OverlayPanelContent& content)
{
    return std::make_unique<LayerCorner>(*this, frame, content);
}

void LayerCorners::pressAt(QPoint point)
{
    for (auto* corner : std::vector(m_corners)) {
        if (corner->press(point))
            return;
    }
}

} // namespace zv
