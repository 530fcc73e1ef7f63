#pragma once

#include "platform/files/Resources.h"

#include <string>
#include <vector>

namespace zv {

/// Resources as files of a folder.
class BundleResources : public Resources {
public:
    /// Folders in order of preference: the first that has a resource provides it.
    explicit BundleResources(std::vector<std::string> folders);

    [[nodiscard]] std::optional<std::vector<std::byte>> load(std::string_view name, std::string_view extension) const override;
    /// The built-in information, overridden by the values of the resource "Info.plist".
    [[nodiscard]] PropertyListDictionary const& information() const override { return m_information; }

private:
    std::vector<std::string> m_folders;
    PropertyListDictionary m_information;
};

} // namespace zv
