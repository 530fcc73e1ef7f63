#pragma once

#include "app/settings/PictureChooser.h"

#include <QDialog>

#include <functional>
#include <string>

class QLabel;
class QLineEdit;
class QListView;
class QPushButton;

namespace zv {

/// A window with the icons of the theme, to search and to choose from. Ends itself when it is closed.
class PictureGrid : public QDialog {
public:
    /// Shows `chosen` as the current one, if that is the name of an icon.
    PictureGrid(PictureChooser& pictures, std::string const& chosen, QWidget* parent);

    std::function<void(std::string const&)> onChosen;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Icons;
    void build();
    void fill();
    void showCurrent();
    void take();

    PictureChooser& m_pictures;
    Icons* m_icons;
    QLineEdit* m_search;
    QListView* m_grid;
    QLabel* m_name;
    QPushButton* m_accept = nullptr;
    std::string m_wanted;
    Observation m_observation;
};

} // namespace zv
