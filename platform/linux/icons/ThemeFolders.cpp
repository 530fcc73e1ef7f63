#include "platform/linux/icons/ThemeFolders.h"

#include "base/Split.h"
#include "platform/linux/posix/FolderStream.h"
#include "platform/linux/posix/WholeFiles.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace zv {

namespace {

constexpr std::size_t largestIndex = std::size_t { 1 } << 20;
constexpr std::size_t mostThemes = 20;
constexpr std::size_t mostNames = 50'000;

/// The list behind the first of the keys that the theme's index has, in all its lines.
std::vector<std::string> listIn(std::string const& theme, std::initializer_list<std::string_view> keys)
{
    std::vector<std::string> list;
    auto const index = readTextFile(theme + "/index.theme", largestIndex).value_or("");
    for (auto const line : split(index, '\n')) {
        for (auto const key : keys) {
            if (!line.starts_with(key))
                continue;
            for (auto const part : split(line.substr(key.size()), ','))
                list.emplace_back(trimmed(part));
        }
    }
    return list;
}

/// The theme, then those that it inherits from, each once; every theme inherits from "hicolor".
std::vector<std::string> withParents(std::string const& theme, std::vector<std::string> const& searchPaths)
{
    std::vector<std::string> themes { theme };
    auto const add = [&](std::string const& name) {
        if (std::find(themes.begin(), themes.end(), name) == themes.end() && themes.size() < mostThemes)
            themes.push_back(name);
    };
    for (std::size_t i = 0; i < themes.size(); ++i) {
        for (auto const& path : searchPaths) {
            for (auto const& parent : listIn(path + "/" + std::string(themes[i]), { "Inherits=" }))
                add(parent);
        }
    }
    add("hicolor");
    return themes;
}

void addNames(std::string const& folder, std::set<std::string>& names)
{
    for (auto const& file : namesInFolder(folder)) {
        for (auto const extension : pictureExtensions) {
            if (!file.ends_with(extension) || names.size() >= mostNames)
                continue;
            auto name = file.substr(0, file.size() - extension.size());
            if (name.find("-symbolic") == std::string::npos && isValidUtf8(name))
                names.insert(std::move(name));
        }
    }
}

/// False for an inherited icon that the toolkit never comes to: before it goes on to a theme's parents, it takes "a-b" and
/// "a" of the theme for "a-b-c".
bool isFoundBehind(std::set<std::string> const& nearer, std::string_view name)
{
    for (auto dash = name.rfind('-'); dash != std::string_view::npos; dash = name.rfind('-')) {
        name = name.substr(0, dash);
        if (nearer.contains(std::string(name)))
            return false;
    }
    return true;
}

} // namespace

std::vector<std::string> namesInFolder(std::string const& folder)
{
    std::vector<std::string> names;
    FolderStream const stream(::opendir(folder.c_str()));
    while (auto const* entry = stream ? ::readdir(stream.get()) : nullptr) {
        if (entry->d_name[0] != '.')
            names.emplace_back(entry->d_name);
    }
    return names;
}

std::vector<std::string> pictureFoldersOf(std::string const& theme)
{
    auto folders = listIn(theme, { "Directories=", "ScaledDirectories=" });
    std::transform(folders.begin(), folders.end(), folders.begin(), [&](auto const& name) { return theme + "/" + name; });
    return folders;
}

std::vector<std::string> iconsOfTheme(std::string const& theme, std::vector<std::string> const& searchPaths)
{
    std::set<std::string> names;
    for (auto const& name : withParents(theme, searchPaths)) {
        std::set<std::string> own;
        for (auto const& path : searchPaths) {
            for (auto const& folder : pictureFoldersOf(path + "/" + std::string(name)))
                addNames(folder, own);
        }
        std::erase_if(own, [&](auto const& icon) { return !isFoundBehind(names, icon); });
        names.merge(own);
    }
    for (auto const& path : searchPaths)
        addNames(path, names);
    return { names.begin(), names.end() };
}

} // namespace zv
