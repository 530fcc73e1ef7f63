#pragma once

#include "base/Translation.h"

#include <QString>

namespace zv {

[[nodiscard]] inline QString text(std::string const& utf8) { return QString::fromStdString(utf8); }
[[nodiscard]] inline QString text(Sentence const& sentence) { return text(tr(sentence)); }

} // namespace zv
