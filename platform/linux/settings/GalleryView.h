#pragma once

#include "app/settings/SettingsModels.h"

#include <QDialog>

#include <vector>

class QLabel;
class QListWidget;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace zv {

/// A window with the menus to start from, each as the entries that it has. Ends itself when it is closed.
class GalleryView : public QDialog {
public:
    GalleryView(SettingsModels& models, QWidget* parent);

private:
    void build();
    void showChosen();
    void addRows(std::vector<MenuItem> const& items, QTreeWidgetItem* parent);
    [[nodiscard]] QIcon iconOf(MenuItem const& item) const;
    void take();

    SettingsModels& m_models;
    std::vector<StartMenu> m_menus;
    QListWidget* m_list;
    QLabel* m_description;
    QTreeWidget* m_preview;
    QPushButton* m_take = nullptr;
};

} // namespace zv
