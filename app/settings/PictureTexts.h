#pragma once

#include "base/Translation.h"
#include "platform/SystemKind.h"

#include <string>

namespace zv {

/// The words for choosing an item's picture.
struct PictureTexts {
    Sentence picture; ///< the title of the row
    std::string choose; ///< the buttons, and what they do
    std::string chooseHelp;
    std::string image;
    std::string imageHelp;
    std::string reset;
    std::string resetHelp;
    std::string wellHelp;
    std::string gridTitle; ///< the window with the grid
    std::string grid; ///< for assistive tools
    std::string search;
    Sentence nothingFound;
    Sentence loading;
    std::string accept;
    std::string cancel;

    [[nodiscard]] static PictureTexts of(SystemKind system);
};

} // namespace zv
