#pragma once

#include "app/settings/SettingsPage.h"

#include <QFormLayout>
#include <QHash>
#include <QPointer>
#include <QScrollArea>

#include <functional>
#include <vector>

namespace zv {

class RecorderField;

/// Draws settings rows with the desktop's own controls, in groups. Rows keep their controls
/// while the page changes, so that the focus stays where it is.
class SettingsPageView : public QScrollArea {
public:
    using MakeRecorder = std::function<RecorderField*()>;

    explicit SettingsPageView(MakeRecorder makeRecorder);

    void show(std::vector<SettingsSection> const& sections);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    class Row;

    void wrapTitles();
    void build(std::vector<SettingsSection> const& sections);
    void addSection(QFormLayout& form, SettingsSection const& section);
    [[nodiscard]] QWidget* makeRow(SettingsRow const& row);

    MakeRecorder m_makeRecorder;
    std::string m_shape; ///< ids and kinds of the current rows
    QHash<QString, Row*> m_rows;
    QPointer<QFormLayout> m_form;
};

} // namespace zv
