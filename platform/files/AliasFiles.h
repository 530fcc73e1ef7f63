#pragma once

#include "base/Result.h"
#include "base/Url.h"

#include <string>

namespace zv {

struct AliasFailure {
    bool isNameTaken = false; ///< something of that name exists, perhaps since a moment ago
    std::string reason; ///< the system's own sentence
};

/// Files that stand for other files. Any thread.
class AliasFiles {
public:
    virtual ~AliasFiles() = default;
    /// Makes an alias of `target`, which must exist, at `place`. Never replaces a file.
    [[nodiscard]] virtual Result<void, AliasFailure> createAlias(Url const& target, Url const& place) = 0;
};

} // namespace zv
