#pragma once

#include "app/settings/SettingsModels.h"

#include <QTreeWidget>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QKeyEvent;
class QLineEdit;
class QPushButton;

namespace zv {

/// The palette: a search field above the groups of entries. Entries are dragged into the outline,
/// or added by a double click or Return.
class LibraryView : public QWidget {
public:
    explicit LibraryView(SettingsModels& models);

    /// The width that shows the titles whole.
    [[nodiscard]] int fittingWidth() const;

    std::function<void(LibraryEntry const&)> onAdd;
    /// Called to show an item of the menu that the search has found.
    std::function<void(Uuid const&)> onShow;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    class Tree;
    class Entry;
    void fill();
    void refill();
    void addItems(QTreeWidgetItem& heading, std::vector<MenuItem const*> const& items);
    [[nodiscard]] std::optional<Uuid> chosenItem() const;
    void addChosen();
    [[nodiscard]] bool searchKeyPressed(QKeyEvent& event);

    SettingsModels& m_models;
    QLineEdit* m_search;
    QTreeWidget* m_tree;
    QPushButton* m_show;
    Observation m_observation;
};

} // namespace zv
