#include "platform/linux/files/BundleResources.h"

#include "platform/linux/posix/WholeFiles.h"
#include "platform/text/PropertyListFormat.h"

namespace zv {

namespace {

PropertyListDictionary builtInInformation()
{
    return {
        { "CFBundleName", "Zanthe Vell" },
        { "CFBundleDisplayName", "Zanthe Vell" },
        { "CFBundleIdentifier", "org.zanthevell.ZantheVell" },
        { "CFBundleShortVersionString", ZV_VERSION },
    };
}

} // namespace

BundleResources::BundleResources(std::vector<std::string> folders)
    : m_folders(std::move(folders))
    , m_information(builtInInformation())
{
    auto const bytes = load("Info", "plist");
    auto const own = bytes ? readPropertyList(*bytes) : Result<PropertyList>(PropertyListDictionary());
    if (!own || !own->dictionary())
        return;
    for (auto const& [key, value] : *own->dictionary())
        m_information.set(key, value);
}

std::optional<std::vector<std::byte>> BundleResources::load(std::string_view name, std::string_view extension) const
{
    for (auto const& folder : m_folders) {
        for (auto const* system : { " (Linux)", "" }) {
            auto bytes = readWholeFile(folder + "/" + std::string(name) + system + "." + std::string(extension), maximumPropertyListSize);
            if (bytes)
                return std::move(*bytes);
        }
    }
    return std::nullopt;
}

} // namespace zv
