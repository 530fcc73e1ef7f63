#pragma once

#include <QLayout>
#include <QList>

namespace zv {

/// Lays widgets side by side, in further lines where one is too short; from the right where the language is written so.
class FlowLayout : public QLayout {
public:
    FlowLayout() { setContentsMargins(0, 0, 0, 0); }
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override { m_items.append(item); }
    [[nodiscard]] int count() const override { return static_cast<int>(m_items.size()); }
    [[nodiscard]] QLayoutItem* itemAt(int index) const override { return m_items.value(index); }
    QLayoutItem* takeAt(int index) override { return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr; }
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override { return place({ 0, 0, width, 0 }, Placing::measured); }
    [[nodiscard]] QSize minimumSize() const override;
    [[nodiscard]] QSize sizeHint() const override { return minimumSize(); }
    void setGeometry(QRect const& area) override;

private:
    enum class Placing { measured, done };
    [[nodiscard]] int place(QRect const& area, Placing placing) const;

    QList<QLayoutItem*> m_items;
};

} // namespace zv
