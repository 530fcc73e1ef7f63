#pragma once

#include "base/Url.h"

#include <string>
#include <vector>

namespace zv {

/// The desktop's clipboard. Main thread only.
class Clipboard {
public:
    virtual ~Clipboard() = default;
    /// Replaces the contents with plain text.
    virtual void setText(std::string const& text) = 0;
    /// Replaces the contents with files, for pasting in file managers; as text, their paths.
    virtual void setFiles(std::vector<Url> const& files) = 0;
};

} // namespace zv
