#pragma once

#include "platform/desk/PictureSource.h"
#include "platform/time/Tasks.h"

namespace zv {

/// Pictures of items: the icons of the desktop's theme, and images read in the background. Main thread only.
class ThemePictures : public PictureSource {
public:
    /// The reference outlives this.
    explicit ThemePictures(Tasks& tasks)
        : m_tasks(tasks)
    {
    }
    void listNames(std::function<void(Names)> use) override;
    void shrink(Url const& file, std::function<void(std::optional<Png>)> use) override;

private:
    Tasks& m_tasks;
};

} // namespace zv
