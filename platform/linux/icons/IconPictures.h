#pragma once

#include "platform/linux/icons/FileIconNames.h"
#include "platform/linux/icons/PictureFiles.h"
#include "platform/linux/icons/UserThemes.h"

#include <QHash>
#include <QIcon>
#include <QString>

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zv {

/// A picture with its names, shared by all files that look so.
struct IconLook {
    FileIconNames names;
    QIcon drawn;
    int drawnFor = -1; ///< number of the theme and screens it was drawn for
    bool isFound = false; ///< once it was drawn: whether there was more than our own shape to draw
};

/// Draws pictures by name and caches them, together with each file's last known picture. Main
/// thread only.
class IconPictures {
public:
    /// Both references outlive the use of pictures: stopReading() ends it.
    IconPictures(Tasks& tasks, Timers& timers);
    /// Files are not read any more; what was drawn stays.
    void stopReading() { m_files.reset(); }

    /// Null when the file was not examined yet.
    [[nodiscard]] std::shared_ptr<IconLook> known(std::string const& path) const;
    std::shared_ptr<IconLook> remember(std::string const& path, FileIconNames names);
    [[nodiscard]] std::shared_ptr<IconLook> lookOf(FileIconNames names);

    [[nodiscard]] bool isDrawn(IconLook const& look);
    /// Always a picture: one of ours where the theme has none of the names.
    [[nodiscard]] QIcon picture(IconLook& look);
    /// The same in another size, drawn anew; null where the theme has none of the names.
    [[nodiscard]] QPixmap large(FileIconNames const& names, int size, qreal scale);

private:
    void followThemeAndScreens();
    void forgetDrawn();
    void pictureWasRead(std::string const& path);
    [[nodiscard]] QIcon sourceOf(FileIconNames const& names);

    std::unique_ptr<PictureFiles> m_files;
    UserThemes m_userThemes;
    std::unordered_map<std::string, std::shared_ptr<IconLook>> m_known;
    std::unordered_map<std::string, std::shared_ptr<IconLook>> m_looks; ///< by all fields of their names
    std::size_t m_drawnCount = 0;
    QString m_theme;
    std::vector<qreal> m_scales;
    int m_number = 0; ///< number of the current theme and screens
};

/// The first of the names that the theme has; empty when it has none of them.
[[nodiscard]] QString firstThemeName(FileIconNames const& names);

} // namespace zv
