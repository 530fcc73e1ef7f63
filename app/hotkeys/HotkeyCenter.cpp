#include "app/hotkeys/HotkeyCenter.h"

#include "app/model/KeyCombination.h"
#include "app/model/OwnItems.h"
#include "base/Log.h"
#include "base/MainThread.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <unordered_set>
#include <utility>

namespace zv {

namespace {

constexpr int conflictsProperty = 0;
constexpr int supportProperty = 1;
constexpr int filesProperty = 2;

std::vector<MenuItem> const noItems;

/// Retired and unknown kinds keep their stored shortcut but never get a hotkey.
bool isEligible(MenuItemKind const& kind) { return !kind.isLegacy(); }

/// The items that lead to this one, and it, as arguments; empty when it is not there.
std::string wayTo(Uuid const& id, std::vector<MenuItem> const& items)
{
    for (auto const& item : items) {
        auto const below = item.id == id ? std::string() : wayTo(id, item.children);
        if (item.id == id || !below.empty())
            return " " + item.id.toString() + below;
    }
    return {};
}

/// Has the shell do what the hotkey would.
std::string commandFor(HotkeyTarget const& target, std::vector<MenuItem> const& items)
{
    if (target.isMenu())
        return commandOfShow;
    if (auto const* file = target.fileURL())
        return "xdg-open " + quotedForShell(file->path());
    return "zanthe-vell perform" + wayTo(*target.itemID(), items);
}

} // namespace

/// The result of one walk over items and files. A shortcut's text is used up by the first target
/// that has it, even if its key is not on the keyboard.
struct HotkeyCenter::Pass {
    std::unordered_set<std::string> used;
    std::vector<Wanted> wanted;
    std::set<Conflict> conflicts;
    std::vector<Unavailable> unavailable;
};

HotkeyCenter::HotkeyCenter(HotkeyRegistrar& registrar, KeyboardLayout& layout)
    : m_registrar(registrar)
    , m_layout(layout)
    , m_menuItems(&noItems)
    , m_support(registrar.support())
{
}

HotkeyCenter::~HotkeyCenter()
{
    if (!m_listens)
        return;
    m_registrar.onPressed = nullptr;
    m_registrar.onInvalidated = nullptr;
}

void HotkeyCenter::setMenuItems(std::vector<MenuItem> const& items)
{
    assertMainThread();
    m_menuItems = &items;
}

void HotkeyCenter::setMenuShortcut(std::optional<KeyEquivalentSpec> shortcut)
{
    assertMainThread();
    m_menuShortcut = std::move(shortcut);
    m_isCurrent = false;
}

void HotkeyCenter::setFileHotkeys(std::map<Url, KeyEquivalentSpec> hotkeys)
{
    assertMainThread();
    m_fileHotkeys = std::move(hotkeys);
    m_isCurrent = false;
}

void HotkeyCenter::menuItemsChanged(std::vector<MenuItem> const& items)
{
    setMenuItems(items);
    ItemShortcuts shortcuts;
    shortcuts.reserve(m_itemShortcuts.size());
    collectItems(items, shortcuts);
    bool const isUnchanged = m_isCurrent && !m_wasRefused && m_registrar.support() == m_support && shortcuts == m_itemShortcuts;
    if (!isUnchanged)
        return reregister();
    tellRegistered(); // of other titles
}

std::set<HotkeyCenter::Conflict> const& HotkeyCenter::conflicts() const
{
    assertMainThread();
    m_observers.access(conflictsProperty);
    return m_conflicts;
}

HotkeySupport HotkeyCenter::support() const
{
    assertMainThread();
    m_observers.access(supportProperty);
    return m_support;
}

std::vector<KeyBindingLine> HotkeyCenter::bindingLines() const
{
    std::vector<KeyBindingLine> lines;
    if (support() != HotkeySupport::none)
        return lines;
    for (auto const& wanted : m_unsupported) {
        if (auto line = m_registrar.bindingLine(wanted.chord, commandFor(wanted.target, *m_menuItems)))
            lines.push_back(std::move(*line));
    }
    if (auto show = m_unsupported.empty() ? bindingOfShow() : std::nullopt)
        lines.push_back(std::move(*show));
    return lines;
}

void HotkeyCenter::reregister()
{
    assertMainThread();
    noteSupport();
    if (m_isPaused)
        return;
    if (beforePass)
        beforePass();
    auto const filesBefore = registeredFiles();
    Pass pass;
    pass.wanted.reserve(m_registrations.size()); // mostly as many as last time
    pass.used.reserve(m_registrations.size());
    m_registrations.clear();
    listen();
    if (m_menuShortcut)
        collect(Target::menu(), *m_menuShortcut, pass);
    m_itemShortcuts.clear();
    collectItems(*m_menuItems, m_itemShortcuts);
    for (auto const& [id, spec] : m_itemShortcuts)
        collect(Target::item(id), spec, pass);
    collectFiles(pass);
    claim(std::move(pass.wanted), pass.conflicts);
    m_unavailable = std::move(pass.unavailable);
    setConflicts(std::move(pass.conflicts));
    noteRegisteredFiles(filesBefore);
    m_isCurrent = true;
    tellRegistered();
}

void HotkeyCenter::tellRegistered() const
{
    if (onRegistered)
        onRegistered();
}

void HotkeyCenter::retryRefused()
{
    if (m_wasRefused)
        reregister();
}

void HotkeyCenter::unregisterAll()
{
    assertMainThread();
    m_registrar.releaseAll();
    m_registrations.clear();
    m_isCurrent = false;
    setConflicts({});
    tellRegistered();
}

void HotkeyCenter::pause()
{
    m_isPaused = true;
    unregisterAll();
}

void HotkeyCenter::resume()
{
    m_isPaused = false;
    reregister();
}

void HotkeyCenter::collectItems(std::vector<MenuItem> const& items, ItemShortcuts& shortcuts)
{
    for (auto const& item : items) {
        if (item.keyEquivalent && isEligible(item.kind))
            shortcuts.emplace_back(item.id, *item.keyEquivalent);
        collectItems(item.children, shortcuts);
    }
}

void HotkeyCenter::collectFiles(Pass& pass)
{
    std::vector<std::pair<std::string, Url>> files;
    files.reserve(m_fileHotkeys.size());
    for (auto const& [url, spec] : m_fileHotkeys)
        files.emplace_back(url.path(), url);
    std::sort(files.begin(), files.end());
    for (auto const& [path, url] : files)
        collect(Target::file(url), m_fileHotkeys.at(url), pass);
}

void HotkeyCenter::collect(Target target, KeyEquivalentSpec const& spec, Pass& pass)
{
    auto shortcut = spec.description();
    if (!pass.used.insert(shortcut).second) {
        pass.conflicts.insert({ std::move(target), std::move(shortcut) });
        return;
    }
    auto const chord = chordFor(spec);
    if (!chord)
        pass.unavailable.push_back({ std::move(target), std::move(shortcut), Unavailable::Reason::notOnLayout });
    else if (m_registrar.isKeptBySystem(*chord))
        pass.unavailable.push_back({ std::move(target), std::move(shortcut), Unavailable::Reason::keptBySystem });
    else
        pass.wanted.push_back({ std::move(target), std::move(shortcut), *chord });
}

void HotkeyCenter::claim(std::vector<Wanted> wanted, std::set<Conflict>& conflicts)
{
    m_wasRefused = false;
    m_unsupported.clear();
    if (m_support == HotkeySupport::none) {
        m_unsupported = std::move(wanted); // no other program holds them: not a conflict
        return;
    }
    std::vector<KeyChord> chords(wanted.size());
    std::transform(wanted.begin(), wanted.end(), chords.begin(), [](Wanted const& each) { return each.chord; });
    auto const succeeded = m_registrar.claimAll(m_nextHotKeyID, chords);
    m_wasRefused = std::find(succeeded.begin(), succeeded.end(), false) != succeeded.end();
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        auto& [target, shortcut, chord] = wanted[i];
        if (succeeded[i])
            m_registrations.emplace_back(takeID(), Registration { std::move(target), std::move(shortcut) });
        else
            conflicts.insert({ std::move(target), std::move(shortcut) });
    }
}

void HotkeyCenter::setConflicts(std::set<Conflict> conflicts)
{
    if (conflicts == m_conflicts)
        return;
    m_conflicts = std::move(conflicts);
    m_observers.changed(conflictsProperty);
}

std::map<Url, std::string> HotkeyCenter::registeredFiles() const
{
    assertMainThread();
    m_observers.access(filesProperty);
    std::map<Url, std::string> files;
    for (auto const& [id, registration] : m_registrations) {
        if (auto const* file = registration.target.fileURL())
            files.emplace(*file, registration.shortcut);
    }
    return files;
}

void HotkeyCenter::noteRegisteredFiles(std::map<Url, std::string> const& before)
{
    if (registeredFiles() != before)
        m_observers.changed(filesProperty);
}

/// Support may change: a service may answer only later.
void HotkeyCenter::noteSupport()
{
    auto const support = m_registrar.support();
    if (std::exchange(m_support, support) != support)
        m_observers.changed(supportProperty);
}

void HotkeyCenter::listen()
{
    if (std::exchange(m_listens, true))
        return;
    m_registrar.onPressed = [this](HotkeyID id) { pressed(id); };
    m_registrar.onInvalidated = [this] { reregister(); };
}

void HotkeyCenter::pressed(HotkeyID id)
{
    assertMainThread();
    auto const found
        = std::lower_bound(m_registrations.begin(), m_registrations.end(), id, [](auto const& each, HotkeyID wanted) { return each.first < wanted; });
    if (found == m_registrations.end() || found->first != id || !onTrigger)
        return;
    // Copies: the trigger may cause another pass.
    auto const target = found->second.target;
    auto const trigger = onTrigger;
    trigger(target);
}

HotkeyID HotkeyCenter::takeID()
{
    if (m_nextHotKeyID == std::numeric_limits<HotkeyID>::max()) {
        logLine("all hotkey ids are used up");
        std::abort();
    }
    return m_nextHotKeyID++;
}

std::optional<KeyChord> HotkeyCenter::chordFor(KeyEquivalentSpec const& spec)
{
    bool const isNamed = spec.trigger.kind == KeyEquivalentSpec::Trigger::Kind::named;
    auto const code = isNamed ? keyCodeOfNamedKey(spec.trigger.text) : m_layout.keyCode(spec.trigger.text);
    if (!code)
        return std::nullopt;
    return KeyChord { *code, modifiersOf(spec) };
}

} // namespace zv
