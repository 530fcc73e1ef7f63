#pragma once

#include <QString>

#include <string>

namespace zv {

/// A toolkit's sentence for use as a reason within one of ours: without its final stop.
inline std::string reasonFrom(QString const& sentence)
{
    auto text = sentence.toStdString();
    while (text.ends_with('.'))
        text.pop_back();
    return text;
}

} // namespace zv
