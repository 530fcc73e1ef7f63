#pragma once

#include "cli/CommandContext.h"
#include "platform/linux/bus/BusRunningProgram.h"
#include "platform/linux/compose/CommandLineMenu.h"
#include "platform/linux/files/BundleResources.h"
#include "platform/linux/files/LinuxBookmarks.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/files/SymlinkAliasFiles.h"
#include "platform/linux/machine/SystemClock.h"
#include "platform/linux/posix/XdgDirectories.h"
#include "platform/linux/store/PlistUserDefaults.h"
#include "platform/program/DesktopFindings.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zv {

/// The command line's services over this machine, without display or event loop. What
/// costs anything is made when the first command asks for it.
class CommandLineServices : public CommandContext {
public:
    explicit CommandLineServices(Streams streams);

    UserDefaults& defaults() override;
    Resources const& resources() override;
    FileSystem& files() override { return m_files; }
    Bookmarks& bookmarks() override { return m_bookmarks; }
    Clock const& clock() override { return m_clock; }
    RunningProgram& runningProgram() override;
    MenuSession& menuSession() override;
    EntryChooser& chooser() override;
    AliasFiles& aliases() override { return m_aliases; }
    std::string const& homePath() override { return m_directories.home; }
    Url backupsFolder() override;
    Url itemsFolder() override;
    Url currentFolder() override;
    std::vector<DoctorCheck> doctorChecks() override;
    /// What only the toolkit can find out; asked by doctor alone.
    void setDisplaySurvey(std::function<void(DesktopFindings&)> survey) { m_surveyDisplay = std::move(survey); }

private:
    [[nodiscard]] CommandLineMenu& menu();

    std::function<void(DesktopFindings&)> m_surveyDisplay;
    XdgDirectories m_directories = XdgDirectories::current();
    LinuxFileSystem m_files;
    LinuxBookmarks m_bookmarks;
    SymlinkAliasFiles m_aliases;
    SystemClock m_clock;
    std::unique_ptr<PlistUserDefaults> m_defaults;
    std::unique_ptr<BundleResources> m_resources;
    std::unique_ptr<BusRunningProgram> m_runningProgram;
    std::unique_ptr<CommandLineMenu> m_menu;
};

} // namespace zv
