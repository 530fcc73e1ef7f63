#pragma once

#include <QPushButton>
#include <QString>

namespace zv {

/// A button that Return does not press from elsewhere, with air around its title.
[[nodiscard]] inline QPushButton* settingsButton(QString const& title)
{
    constexpr int air = 18;
    auto* button = new QPushButton(title);
    button->setAutoDefault(false);
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(title) + 2 * air);
    return button;
}

} // namespace zv
