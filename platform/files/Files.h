#pragma once

#include "platform/files/AliasFiles.h"
#include "platform/files/Bookmarks.h"
#include "platform/files/FileSystem.h"
#include "platform/files/FolderReader.h"
#include "platform/files/Resources.h"
#include "platform/files/UserDefaults.h"

#include <memory>

namespace zv {

/// What is stored. Shared is what work in the background holds on to.
struct Files {
    UserDefaults& defaults;
    Resources const& resources;
    std::shared_ptr<FileSystem> disk;
    Bookmarks& bookmarks;
    AliasFiles& aliases;
    std::shared_ptr<FolderReader const> folders;
};

} // namespace zv
