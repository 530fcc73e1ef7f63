#pragma once

#include "platform/desk/PictureSource.h"

#include <map>
#include <string>

namespace zv::fakes {

/// A theme of a few names, and images by their paths.
class FakePictureSource : public PictureSource {
public:
    void listNames(std::function<void(Names)> use) override
    {
        ++listed;
        use(names);
    }
    void shrink(Url const& file, std::function<void(std::optional<Png>)> use) override
    {
        auto const found = images.find(file.path());
        use(found == images.end() ? std::nullopt : std::optional(found->second));
    }

    Names names { "folder-red", "user-home", "folder-music" };
    std::map<std::string, Png> images;
    int listed = 0;
};

} // namespace zv::fakes
