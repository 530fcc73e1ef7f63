#pragma once

#include <memory>
#include <string>

namespace zv {

/// A menu-sized picture (16 by 16 points, at every scale), opaque but to the front end
/// that made it.
class Image {
public:
    virtual ~Image() = default;
    /// A theme icon's name or a file's path, for `menu --json`; may be empty.
    [[nodiscard]] virtual std::string name() const = 0;
};

using ImageRef = std::shared_ptr<Image const>;

} // namespace zv
