#pragma once

#include <dirent.h>
#include <memory>

namespace zv {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};
/// An open folder whose entries are read one by one; null when it could not be opened.
using FolderStream = std::unique_ptr<DIR, CloseFolder>;

} // namespace zv
