#pragma once

#include "platform/linux/FileIconNames.h"

#include <QHash>
#include <QIcon>
#include <QString>

#include <optional>
#include <string>
#include <unordered_map>

namespace zv {

/// Draws pictures by their names and keeps them, together with what each file was last
/// known to be pictured by. Main thread only.
class IconPictures {
public:
    /// Null when the file was not looked at yet.
    [[nodiscard]] FileIconNames const* known(std::string const& path) const;
    void remember(std::string const& path, FileIconNames names);

    [[nodiscard]] bool isDrawn(FileIconNames const& names) const;
    /// Every file has a picture: where the theme has none of the names it is one of ours.
    [[nodiscard]] QIcon picture(FileIconNames const& names);

private:
    [[nodiscard]] static QString keyOf(FileIconNames const& names);

    std::unordered_map<std::string, FileIconNames> m_known;
    QHash<QString, QIcon> m_drawn;
};

/// The first of the names that the theme has; empty when it has none of them.
[[nodiscard]] QString firstThemeName(FileIconNames const& names);

} // namespace zv
