#pragma once

#include "platform/files/Resources.h"

#include <string>
#include <vector>

namespace zv {

/// Resources as files of a folder.
class BundleResources : public Resources {
public:
    /// The first of the folders that has a resource gives it.
    explicit BundleResources(std::vector<std::string> folders);

    [[nodiscard]] std::optional<std::vector<std::byte>> load(std::string_view name, std::string_view extension) const override;
    /// What the program knows of itself, then the resource "Info.plist", whose values count where
    /// both have one.
    [[nodiscard]] PropertyListDictionary const& information() const override { return m_information; }

private:
    [[nodiscard]] std::optional<std::vector<std::byte>> loadFile(std::string const& fileName) const;

    std::vector<std::string> m_folders;
    PropertyListDictionary m_information;
};

} // namespace zv
