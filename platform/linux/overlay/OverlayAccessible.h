#pragma once

#include "platform/menubar/OverlayPanels.h"

#include <QRect>
#include <QWindow>

#include <memory>

namespace zv {

/// The accessible object of a panel's window, which the toolkit does not know. Never shown.
class OverlayAccessible : public QWindow {
public:
    explicit OverlayAccessible(OverlayPanelContent& content);
    ~OverlayAccessible() override;

    void setVisibleRect(QRect const& rect) { m_rect = rect; }
    [[nodiscard]] QRect visibleRect() const { return m_rect; }
    [[nodiscard]] OverlayPanelContent& content() const { return m_content; }
    QAccessibleInterface* accessibleRoot() const override;

private:
    OverlayPanelContent& m_content;
    QRect m_rect;
};

} // namespace zv
