#pragma once

#include "platform/linux/apps/ApplicationIndex.h"
#include "platform/lists/InstalledApplications.h"

namespace zv {

/// The folders "applications" of the data folders, merged: the entry of an earlier folder stands for those of its id
/// in later ones.
class XdgApplicationFolders : public ApplicationFolders {
public:
    /// The catalog outlives this.
    XdgApplicationFolders(ApplicationCatalog& catalog, std::vector<std::string> folders);

    [[nodiscard]] bool contains(Url const& folder) const override;
    void list(std::function<void(std::vector<InstalledApplication>)> done) override;

private:
    ApplicationCatalog& m_catalog;
    std::vector<std::string> m_folders; ///< without a slash at the end
};

} // namespace zv
