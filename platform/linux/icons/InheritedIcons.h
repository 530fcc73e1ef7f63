#pragma once

#include <QString>
#include <QStringList>

namespace zv {

/// The system's pictures of that name in the themes that the current one inherits from, all sizes of the first that has it.
/// The toolkit shortens a name at its dashes in one theme before it looks for the whole name in the next, so that a
/// theme's "system" hides its parent's "system-shutdown".
[[nodiscard]] QStringList inheritedIconFiles(QString const& name);

/// The themes that a theme inherits from, nearest first and each once, as its index.theme in one of the folders tells, and
/// theirs.
[[nodiscard]] QStringList themeAncestors(QString const& theme, QStringList const& folders);

/// All sizes of that picture in the first theme that has it.
[[nodiscard]] QStringList iconFilesIn(QStringList const& themes, QStringList const& folders, QString const& name);

} // namespace zv
