#pragma once

#include "app/settings/SettingsModels.h"

#include <QWidget>

namespace zv {

class AboutView : public QWidget {
public:
    explicit AboutView(SettingsModels& models);

private:
    void showLicences();

    SettingsModels& m_models;
};

} // namespace zv
