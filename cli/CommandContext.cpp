#include "cli/CommandContext.h"

namespace zv {

CommandContext::CommandContext(Streams streams)
    : m_streams(streams)
{
}

CommandContext::~CommandContext() = default;

LocationServices CommandContext::locations() { return { files(), bookmarks(), homePath() }; }

Preferences& CommandContext::preferences()
{
    if (!m_preferences)
        m_preferences = std::make_unique<Preferences>(defaults());
    return *m_preferences;
}

MenuStore& CommandContext::store()
{
    if (m_store)
        return *m_store;
    m_backups = std::make_unique<MenuBackups>(MenuBackups::Services { files(), clock() }, backupsFolder());
    m_store = std::make_unique<MenuStore>(MenuStore::Services { defaults(), resources(), locations() });
    m_store->setBackupSink(m_backups.get());
    return *m_store;
}

} // namespace zv
