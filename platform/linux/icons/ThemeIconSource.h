#pragma once

#include "base/Lifetime.h"
#include "platform/desk/IconSource.h"
#include "platform/linux/entries/StartTrust.h"
#include "platform/linux/icons/ThemeImage.h"
#include "platform/time/Tasks.h"
#include "platform/time/Timers.h"

#include <memory>
#include <string>
#include <vector>

namespace zv {

class IconPictures;

/// Pictures from the desktop's icon theme. A drawn picture is kept for the program's life; a
/// change of its file is looked for in the background, a while after the menu is on screen. Main
/// thread only.
class ThemeIconSource : public IconSource {
public:
    /// Both references outlive this. Needs no display until a picture is drawn.
    ThemeIconSource(Tasks& tasks, Timers& timers, StartTrust trust = StartTrust());
    ~ThemeIconSource() override;

    [[nodiscard]] ImageRef fileIcon(Url const& file) override;
    [[nodiscard]] ImageRef systemIcon(SystemIcon icon) override;
    [[nodiscard]] ImageRef categoryIcon(ApplicationCategory category) override;
    [[nodiscard]] ImageRef namedIcon(std::string const& name, ImageRef const& otherwise) override;
    [[nodiscard]] ImageRef imageIn(Url const& file, ImageRef const& otherwise) override;

    struct FileLooks; ///< tells which picture a file has

private:
    void lookAgainLater(std::string const& path);
    void lookAgain();

    Tasks& m_tasks;
    Timers& m_timers;
    std::shared_ptr<FileLooks const> m_files;
    std::shared_ptr<IconPictures> m_pictures;
    std::vector<std::string> m_toLookAt;
    std::unique_ptr<Timer> m_secondLook;
    Lifetime m_lifetime;
};

} // namespace zv
