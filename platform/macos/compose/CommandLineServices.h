#pragma once

#include "cli/CommandContext.h"
#include "cli/CommandMenu.h"
#include "cli/PortRunningProgram.h"
#include "platform/program/MacFindings.h"

#include <memory>

namespace zv {

/// The command line's services over this machine, without an application object: with one
/// the system would take this process for the running program.
class CommandLineServices : public CommandContext {
public:
    explicit CommandLineServices(Streams streams);
    ~CommandLineServices() override;

    UserDefaults& defaults() override { return *m_defaults; }
    Resources const& resources() override { return *m_resources; }
    FileSystem& files() override { return *m_files; }
    Bookmarks& bookmarks() override { return *m_bookmarks; }
    Clock const& clock() override { return *m_clock; }
    RunningProgram& runningProgram() override { return m_program; }
    MenuSession& menuSession() override { return menu().session(); }
    EntryChooser& chooser() override { return menu().chooser(); }
    AliasFiles& aliases() override { return *m_aliases; }
    std::string const& homePath() override { return m_home; }
    Url backupsFolder() override;
    Url itemsFolder() override;
    Url currentFolder() override;
    std::optional<std::string> fileToLink() override;
    std::vector<DoctorCheck> doctorChecks() override;

private:
    struct Menus;

    [[nodiscard]] CommandMenu& menu();
    [[nodiscard]] MacFindings findings();

    std::string m_home;
    std::unique_ptr<UserDefaults> m_defaults;
    std::unique_ptr<Resources> m_resources;
    std::shared_ptr<FileSystem> m_files;
    std::unique_ptr<Bookmarks> m_bookmarks;
    std::unique_ptr<AliasFiles> m_aliases;
    std::unique_ptr<Clock> m_clock;
    std::unique_ptr<MessagePort> m_post;
    PortRunningProgram m_program;
    std::unique_ptr<Menus> m_menus;
};

} // namespace zv
