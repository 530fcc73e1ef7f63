#include "platform/linux/toolkit/QtClipboard.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <QStringList>
#include <QUrl>

namespace zv {

void QtClipboard::setText(std::string const& text) { QGuiApplication::clipboard()->setText(QString::fromStdString(text)); }

/// As a list of addresses, which every program takes, and in the words of the file managers that follow GNOME's.
void QtClipboard::setFiles(std::vector<Url> const& files)
{
    QList<QUrl> urls;
    QStringList paths;
    QByteArray copied = "copy";
    for (auto const& file : files) {
        urls.append(QUrl(QString::fromStdString(file.toString())));
        paths.append(QFile::decodeName(file.path().c_str()));
        copied.append('\n').append(file.toString().c_str());
    }
    auto* data = new QMimeData;
    data->setUrls(urls);
    data->setText(paths.join(u'\n'));
    data->setData(QStringLiteral("x-special/gnome-copied-files"), copied);
    QGuiApplication::clipboard()->setMimeData(data);
}

} // namespace zv
