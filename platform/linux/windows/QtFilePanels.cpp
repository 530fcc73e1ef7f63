#include "platform/linux/windows/QtFilePanels.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>

namespace zv {

namespace {

Url urlOf(QString const& path) { return Url::fromPath(QFile::encodeName(path).toStdString()); }

QString documentsOrAll(FilePanelQuestion const& question)
{
    auto const* patterns = question.kind == FilePanelKind::image ? "*.png *.svg *.svgz *.jpg *.jpeg *.webp *.gif *.ico *.bmp *.xpm" : "*.plist";
    return QStringLiteral("%1 (%2);;%3 (*)")
        .arg(QString::fromStdString(question.documents), QString::fromLatin1(patterns), QString::fromStdString(question.allFiles));
}

/// Links are chosen themselves, not their targets.
QFileDialog::Options const options = QFileDialog::DontResolveSymlinks;

} // namespace

std::vector<Url> QtFilePanels::chooseToOpen(FilePanelQuestion const& question)
{
    auto const kind = question.kind;
    auto const caption = QString::fromStdString(question.title);
    auto* parent = QApplication::activeWindow();
    QStringList paths;
    if (kind == FilePanelKind::folder)
        paths << QFileDialog::getExistingDirectory(parent, caption, QDir::homePath(), options | QFileDialog::ShowDirsOnly);
    else if (kind != FilePanelKind::filesAndFolders)
        paths << QFileDialog::getOpenFileName(parent, caption, QDir::homePath(), documentsOrAll(question), nullptr, options);
    else
        paths = QFileDialog::getOpenFileNames(parent, caption, QDir::homePath(), QString(), nullptr, options);
    std::vector<Url> chosen;
    for (auto const& path : paths) {
        if (!path.isEmpty())
            chosen.push_back(urlOf(path));
    }
    return chosen;
}

std::optional<Url> QtFilePanels::chooseToSave(std::string const& title, std::string const& suggestedName)
{
    auto const suggested = QDir::home().filePath(QString::fromStdString(suggestedName));
    auto const path = QFileDialog::getSaveFileName(QApplication::activeWindow(), QString::fromStdString(title), suggested);
    return path.isEmpty() ? std::nullopt : std::optional(urlOf(path));
}

} // namespace zv
