#include "platform/linux/icons/Laurel.h"

#include <QDir>
#include <QFile>

/// Writes the icon files into the folder of icon themes that it is given.
int main(int count, char** arguments)
{
    if (count != 2)
        return 2;
    QDir const themes(QString::fromLocal8Bit(arguments[1]));
    struct Picture {
        QString path;
        QString svg;
    };
    Picture const pictures[] = {
        { QStringLiteral("hicolor/scalable/apps/org.zanthevell.ZantheVell.svg"), zv::laurel::applicationSvg() },
        { QStringLiteral("hicolor/symbolic/apps/org.zanthevell.ZantheVell-symbolic.svg"), zv::laurel::symbolicSvg() },
    };
    for (auto const& picture : pictures) {
        auto const path = themes.filePath(picture.path);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QFile::WriteOnly) || file.write(picture.svg.toUtf8()) < 0)
            return 1;
    }
    return 0;
}
