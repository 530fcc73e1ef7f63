#pragma once

#include "platform/files/AliasFiles.h"

namespace zv {

/// Aliases as absolute symbolic links, which every file manager understands.
class SymlinkAliasFiles : public AliasFiles {
public:
    Result<void, AliasFailure> createAlias(Url const& target, Url const& place) override;
};

} // namespace zv
