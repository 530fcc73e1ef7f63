#pragma once

#include "app/settings/SettingsModels.h"

#include <QTreeWidget>
#include <QWidget>

#include <functional>

class QKeyEvent;
class QLineEdit;

namespace zv {

/// The palette: a search field above the groups of entries. Entries are dragged into the outline,
/// or added by a double click or Return.
class LibraryView : public QWidget {
public:
    explicit LibraryView(SettingsModels& models);

    std::function<void(LibraryEntry const&)> onAdd;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    class Tree;
    class Entry;
    void fill();
    void refill();
    void addChosen();
    [[nodiscard]] bool searchKeyPressed(QKeyEvent& event);

    SettingsModels& m_models;
    QLineEdit* m_search;
    QTreeWidget* m_tree;
    Observation m_observation;
};

} // namespace zv
