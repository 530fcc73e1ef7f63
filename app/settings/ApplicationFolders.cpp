#include "app/settings/ApplicationFolders.h"

#include "platform/files/FolderReader.h"
#include "platform/text/Text.h"

#include <set>
#include <string_view>

namespace zv {

namespace {

constexpr std::string_view extension = ".app";

/// Applications may lie in a folder of their maker, and in one below it.
constexpr int deepestFolder = 3;

std::string_view withoutExtension(std::string_view name) { return name.ends_with(extension) ? name.substr(0, name.size() - extension.size()) : name; }

class Search {
public:
    Search(FolderReader const& reader, std::function<std::string(Url const&)> const& identifierOf)
        : m_reader(reader)
        , m_identifierOf(identifierOf)
    {
    }

    void look(Url const& folder, int depth)
    {
        auto const contents = m_reader.read(folder, HiddenFiles::skipped);
        for (std::size_t i = 0; contents && i < contents->size(); ++i) {
            auto const child = (*contents)[i];
            // Takes links to applications, but follows no link to a folder: it may lead in circles.
            if (child.name.ends_with(extension) && child.traits.isDirectory)
                add(folder.appending(child.name), child.localizedName.empty() ? child.name : child.localizedName);
            else if (child.traits.isDirectory && !child.traits.isPackage && !child.isLink && depth < deepestFolder)
                look(folder.appending(child.name), depth + 1);
        }
    }

    std::vector<InstalledApplication> found;

private:
    void add(Url file, std::string_view shownName)
    {
        auto const identifier = m_identifierOf(file);
        bool const isKnown = !identifier.empty() && !m_identifiers.insert(identifier).second;
        if (!isKnown)
            found.push_back({ withValidUtf8(withoutExtension(shownName)), std::move(file) });
    }

    FolderReader const& m_reader;
    std::function<std::string(Url const&)> const& m_identifierOf;
    std::set<std::string> m_identifiers;
};

} // namespace

std::vector<InstalledApplication> applicationsIn(
    std::vector<Url> const& folders, FolderReader const& reader, std::function<std::string(Url const&)> const& identifierOf)
{
    Search search(reader, identifierOf);
    for (auto const& folder : folders)
        search.look(folder, 1);
    return std::move(search.found);
}

} // namespace zv
