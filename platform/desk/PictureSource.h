#pragma once

#include "base/Url.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// What the pictures of items can be made of. Main thread only, callbacks too.
class PictureSource {
public:
    using Names = std::vector<std::string>;
    using Png = std::vector<std::byte>;
    /// The most pixels of an image each way: sharp on every screen, and small.
    static constexpr int mostPixels = 128;

    virtual ~PictureSource() = default;
    /// Lists the names for IconSource::namedIcon(), each once, in no order; `use` comes at once or later.
    virtual void listNames(std::function<void(Names)> use) = 0;
    /// Reads the image in a file as a picture of at most that many pixels; `use` gets nothing where there is none. It comes
    /// later, or never where the file's volume does not answer.
    virtual void shrink(Url const& file, std::function<void(std::optional<Png>)> use) = 0;
};

} // namespace zv
