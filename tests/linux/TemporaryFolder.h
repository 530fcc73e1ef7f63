#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace zv::tests {

/// A test's own folder, removed with its contents.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string pattern = std::filesystem::temp_directory_path() / "zv-test-XXXXXX";
        m_path = mkdtemp(pattern.data());
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;

    [[nodiscard]] std::string path(std::string_view name = {}) const { return name.empty() ? m_path : m_path + "/" + std::string(name); }
    /// Makes the file and the folders above it; gives its path.
    std::string write(std::string_view name, std::string_view content) const
    {
        auto const file = path(name);
        std::filesystem::create_directories(std::filesystem::path(file).parent_path());
        std::ofstream(file, std::ios::binary) << content;
        return file;
    }
    std::string makeFolder(std::string_view name) const
    {
        std::filesystem::create_directories(path(name));
        return path(name);
    }
    std::string link(std::string_view name, std::string const& target) const
    {
        std::filesystem::create_symlink(target, path(name));
        return path(name);
    }
    /// The names in the folder, or in one below it, sorted.
    [[nodiscard]] std::vector<std::string> names(std::string_view below = ".") const
    {
        std::vector<std::string> names;
        for (auto const& entry : std::filesystem::directory_iterator(path(below)))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    std::string m_path;
};

} // namespace zv::tests
