#include "cli/CommandContext.h"

namespace zv {

CommandContext::CommandContext(Streams streams)
    : m_streams(streams)
{
}

CommandContext::~CommandContext() = default;

LocationServices CommandContext::locations() { return { *files().disk, files().bookmarks, places().home }; }

Preferences& CommandContext::preferences()
{
    if (!m_preferences)
        m_preferences = std::make_unique<Preferences>(files().defaults);
    return *m_preferences;
}

MenuStore& CommandContext::store()
{
    if (m_store)
        return *m_store;
    m_backups = std::make_unique<MenuBackups>(MenuBackups::Services { *files().disk, clock() }, places().backupsFolder);
    m_store = std::make_unique<MenuStore>(MenuStore::Services { files().defaults, files().resources, locations() });
    m_store->setBackupSink(m_backups.get());
    return *m_store;
}

CommandMenu& CommandContext::menu()
{
    if (!m_menu)
        m_menu = std::make_unique<CommandMenu>(turningSystem(), preferences(), runningProgram(), out());
    return *m_menu;
}

} // namespace zv
