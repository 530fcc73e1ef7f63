#pragma once

#include "app/settings/ItemInspector.h"
#include "app/settings/SettingsModels.h"

#include <QLabel>
#include <QWidget>

#include <functional>

class QPushButton;

namespace zv {

/// Shows a picture, and takes a file that is dropped on it.
class PictureWell : public QLabel {
public:
    PictureWell();

    std::function<void(Url const&)> onDropped;
    std::function<void()> onClicked;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
};

/// The inspector's row for an item's picture: what it is, and the ways to another one.
class PictureRow : public QWidget {
public:
    explicit PictureRow(SettingsModels& models);

    void show(MenuItem const& item, InspectorFields const& fields);

private:
    QPushButton* addButton(QLayout& line, std::string const& title, std::string const& help, std::function<void()> act);
    void openGrid();

    SettingsModels& m_models;
    Uuid m_id;
    std::string m_icon; ///< the name of the theme's icon that the item has; empty for none
    PictureWell* m_well;
    QPushButton* m_reset;
};

} // namespace zv
