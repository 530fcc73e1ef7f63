#pragma once

#include <string>

namespace zv {

/// The desktop's clipboard. Main thread only.
class Clipboard {
public:
    virtual ~Clipboard() = default;
    /// Replaces the contents with plain text.
    virtual void setText(std::string const& text) = 0;
};

} // namespace zv
