#include "platform/linux/icons/InheritedIcons.h"

#include "platform/linux/icons/IconTheme.h"

#include <QFile>
#include <QIcon>

#include <utility>

namespace zv {

namespace {

constexpr qsizetype mostThemes = 8;
constexpr char const* sizes[] = { "16x16", "22x22", "24x24", "32x32", "48x48", "scalable" };
constexpr char const* contexts[] = { "actions", "status", "apps", "devices", "places", "categories" };

/// What lies elsewhere may be anybody's, and is left to the toolkit.
QStringList systemFolders()
{
    auto folders = QIcon::themeSearchPaths();
    folders.removeIf([](QString const& folder) { return !folder.startsWith(QLatin1String("/usr/")); });
    return folders;
}

QStringList parentsOf(QString const& theme, QStringList const& folders)
{
    QStringList parents;
    for (auto const& folder : folders) {
        auto const names = iniValue((folder + u'/' + theme + QLatin1String("/index.theme")).toStdString(), "Icon Theme", "Inherits");
        for (auto const& name : QString::fromStdString(names).split(u',', Qt::SkipEmptyParts))
            parents += name.trimmed();
        if (!parents.isEmpty())
            break;
    }
    return parents;
}

QStringList const& ancestorsOfCurrentTheme()
{
    static QString theme;
    static QStringList ancestors;
    if (std::exchange(theme, QIcon::themeName()) != theme)
        ancestors = themeAncestors(theme, systemFolders());
    return ancestors;
}

QStringList filesIn(QString const& themeFolder, QString const& name)
{
    QStringList files;
    for (auto const* size : sizes) {
        for (auto const* context : contexts) {
            auto const base = themeFolder + u'/' + QLatin1String(size) + u'/' + QLatin1String(context) + u'/' + name;
            for (auto const* ending : { ".png", ".svg" }) {
                if (QFile::exists(base + QLatin1String(ending)))
                    files += base + QLatin1String(ending);
            }
        }
    }
    return files;
}

} // namespace

QStringList themeAncestors(QString const& theme, QStringList const& folders)
{
    QStringList all { theme };
    for (qsizetype i = 0; i < all.size() && all.size() < mostThemes; ++i) {
        all += parentsOf(all[i], folders);
        all.removeDuplicates();
    }
    all.removeFirst();
    return all;
}

QStringList iconFilesIn(QStringList const& themes, QStringList const& folders, QString const& name)
{
    for (auto const& theme : themes) {
        for (auto const& folder : folders) {
            if (auto files = filesIn(folder + u'/' + theme, name); !files.isEmpty())
                return files;
        }
    }
    return {};
}

QStringList inheritedIconFiles(QString const& name) { return iconFilesIn(ancestorsOfCurrentTheme(), systemFolders(), name); }

} // namespace zv
