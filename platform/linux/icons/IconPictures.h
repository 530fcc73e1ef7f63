#pragma once

#include "platform/linux/icons/FileIconNames.h"

#include <QHash>
#include <QIcon>
#include <QString>

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zv {

/// One way to picture a file, shared by all files that are pictured so.
struct IconLook {
    FileIconNames names;
    QIcon drawn;
    int drawnFor = -1; ///< the theme and screens for which it was drawn, by number
};

/// Draws pictures by their names and keeps them, together with what each file was last
/// known to be pictured by. Main thread only.
class IconPictures {
public:
    /// Null when the file was not looked at yet.
    [[nodiscard]] std::shared_ptr<IconLook> known(std::string const& path) const;
    std::shared_ptr<IconLook> remember(std::string const& path, FileIconNames names);
    [[nodiscard]] std::shared_ptr<IconLook> lookOf(FileIconNames names);

    [[nodiscard]] bool isDrawn(IconLook const& look);
    /// Every file has a picture: where the theme has none of the names it is one of ours.
    [[nodiscard]] QIcon picture(IconLook& look);

private:
    void followThemeAndScreens();
    void forgetDrawn();

    std::unordered_map<std::string, std::shared_ptr<IconLook>> m_known;
    std::unordered_map<std::string, std::shared_ptr<IconLook>> m_looks; ///< by all that they are
    std::size_t m_drawnCount = 0;
    QString m_theme;
    std::vector<qreal> m_scales;
    int m_number = 0; ///< of the theme and screens that pictures are drawn for
};

/// The first of the names that the theme has; empty when it has none of them.
[[nodiscard]] QString firstThemeName(FileIconNames const& names);

} // namespace zv
