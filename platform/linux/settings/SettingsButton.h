#pragma once

#include <QPushButton>
#include <QString>

namespace zv {

/// A button that Return presses only with the focus, with air around its title.
[[nodiscard]] inline QPushButton* settingsButton(QString const& title)
{
    constexpr int air = 18;
    auto* button = new QPushButton(title);
    button->setAutoDefault(false);
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(title) + 2 * air);
    return button;
}

} // namespace zv
