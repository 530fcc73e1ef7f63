#pragma once

#include "platform/files/AliasFiles.h"
#include "platform/files/Bookmarks.h"
#include "platform/files/FileSystem.h"
#include "platform/files/FolderReader.h"
#include "platform/files/Resources.h"
#include "platform/files/UserDefaults.h"

#include <memory>

namespace zv {

/// The seams of stored things. Work in the background holds on to the shared ones.
struct Files {
    UserDefaults& defaults;
    Resources const& resources;
    std::shared_ptr<FileSystem> disk;
    Bookmarks& bookmarks;
    AliasFiles& aliases;
    std::shared_ptr<FolderReader const> folders;
};

} // namespace zv
