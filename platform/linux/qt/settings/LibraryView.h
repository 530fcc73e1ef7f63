#pragma once

#include "app/settings/LibraryPalette.h"

#include <QTreeWidget>
#include <QWidget>

#include <functional>

class QLineEdit;

namespace zv {

class MenuIcons;

/// The palette: a search field above the groups of what can be added. Entries are dragged
/// into the outline, or added by a double click or Return.
class LibraryView : public QWidget {
public:
    LibraryView(LibraryPalette const& palette, MenuIcons& icons);

    std::function<void(LibraryEntry const&)> onAdd;

private:
    class Tree;
    void fill();
    void addChosen();

    LibraryPalette const& m_palette;
    MenuIcons& m_icons;
    QLineEdit* m_search;
    QTreeWidget* m_tree;
};

} // namespace zv
