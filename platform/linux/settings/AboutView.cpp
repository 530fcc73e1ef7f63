#include "platform/linux/settings/AboutView.h"

#include "platform/linux/icons/LaurelIcon.h"
#include "platform/linux/settings/SettingsButton.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace zv {

namespace {

QLabel* centred(std::string const& text, double scale, bool isBold)
{
    auto* label = new QLabel(QString::fromStdString(text));
    label->setAlignment(Qt::AlignHCenter);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto font = label->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(isBold);
    label->setFont(font);
    return label;
}

} // namespace

AboutView::AboutView(SettingsModels& models)
    : m_models(models)
{
    auto const& about = models.about();
    auto* column = new QVBoxLayout(this);
    column->setSpacing(8);
    column->addStretch(2);
    auto* icon = new QLabel;
    icon->setPixmap(laurelApplicationIcon().pixmap(96));
    icon->setAlignment(Qt::AlignHCenter);
    column->addWidget(icon);
    column->addWidget(centred(about.name, 1.9, true));
    column->addWidget(centred(about.version, 1, false));
    column->addSpacing(6);
    column->addWidget(centred(about.purpose, 1.1, false));
    column->addSpacing(14);
    auto* buttons = new QHBoxLayout;
    auto* readMe = settingsButton(QString::fromStdString(about.readMeButton));
    auto* licences = settingsButton(QString::fromStdString(about.licencesButton));
    auto* diagnostics = settingsButton(QString::fromStdString(about.diagnosticsButton));
    buttons->addStretch();
    for (auto* each : { readMe, licences, diagnostics })
        buttons->addWidget(each);
    buttons->addStretch();
    column->addLayout(buttons);
    column->addSpacing(14);
    auto* privacy = centred(about.privacy, 0.92, false);
    privacy->setForegroundRole(QPalette::PlaceholderText);
    column->addWidget(privacy);
    column->addStretch(3);

    connect(readMe, &QPushButton::clicked, this, [this] { m_models.showReadMe(); });
    connect(licences, &QPushButton::clicked, this, [this] { showLicences(); });
    connect(diagnostics, &QPushButton::clicked, this, [this] { m_models.copyDiagnostics(); });
}

void AboutView::showLicences()
{
    QDialog dialog(this);
    dialog.setWindowTitle(QString::fromStdString(m_models.about().licencesButton));
    auto* column = new QVBoxLayout(&dialog);
    auto* text = new QPlainTextEdit(QString::fromStdString(m_models.about().licences));
    text->setReadOnly(true);
    text->document()->setDocumentMargin(14);
    text->setAccessibleName(QString::fromStdString(m_models.about().licencesButton));
    column->addWidget(text);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    column->addWidget(buttons);
    dialog.resize(560, 420);
    dialog.exec();
}

} // namespace zv
