#pragma once

#include "app/menu/EntrySubject.h"
#include "app/menu/TextColor.h"
#include "platform/desk/Image.h"
#include "platform/desk/KeyPress.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

/// The menu model. The builder fills it; the front ends mirror it each time it opens and forget it
/// when it has closed. Main thread only.
namespace zv {

class Menu;
class MenuSearch;

/// The action of an entry. Every actionable entry owns its own.
class MenuActionTarget {
public:
    /// `kept` lives as long as this does, for objects that `run` only points at.
    explicit MenuActionTarget(std::function<void()> run, std::shared_ptr<void const> kept = nullptr)
        : m_run(std::move(run))
        , m_kept(std::move(kept))
    {
    }
    /// Copies first: running may destroy the menu, and this with it.
    void invoke() const
    {
        auto const run = m_run;
        auto const kept = m_kept;
        run();
    }

private:
    std::function<void()> m_run;
    std::shared_ptr<void const> m_kept;
};

/// Fills a menu before it opens, and is told when it has closed. The menu holds it weakly.
class MenuDelegate {
public:
    virtual ~MenuDelegate() = default;
    virtual void menuNeedsUpdate(Menu& menu) = 0;
    virtual void menuDidClose(Menu&) { }
    /// The action for a key pressed while the menu is open; null when it is no entry's shortcut.
    [[nodiscard]] virtual std::shared_ptr<MenuActionTarget> targetForKey(Menu const&, KeyPress const&) { return nullptr; }
    /// A search through the submenus below `start`, an open menu of this tree; null where nothing is searched.
    [[nodiscard]] virtual std::shared_ptr<MenuSearch> searchBelow(Menu const& /*start*/) { return nullptr; }
};

/// A title with style and a hint beside its text.
struct AttributedTitle {
    std::string text;
    bool italic = false;
    std::string hint; ///< shown at a right-aligned tab; empty when there is none
    double hintTab = 0; ///< points from the title's left edge to the hint's right edge
    bool hintIsItalic = false; ///< the hint tells of a combination that is not in use
    friend bool operator==(AttributedTitle const&, AttributedTitle const&) = default;
};

/// The way to an entry that a search found, from the searched menu on.
struct EntryWay {
    std::string text; ///< "Documents ▸ Taxes", its parts isolated from each other's direction
    std::string spoken; ///< "in Documents, Taxes", for those who hear it
};

struct MenuEntry {
    enum class Type { item, separator };

    Type type = Type::item;
    std::string title;
    std::optional<AttributedTitle> attributedTitle;
    std::optional<TextColor> color; ///< of the title; empty for the menu's own
    std::string toolTip;
    ImageRef image;
    bool enabled = true;
    bool isMarked = false; ///< a check mark: the current one of several
    std::string keyEquivalent; ///< one character, lower case; function keys as U+F704 …; empty for none
    ModifierMask keyEquivalentModifierMask = ModifierMask::none;
    std::string identifier;
    std::shared_ptr<MenuActionTarget> target; ///< null when choosing does nothing
    std::shared_ptr<void> representedObject; ///< keeps the entry's objects alive: its target, its submenu's delegate
    std::shared_ptr<Menu> submenu;
    EntrySubject subject; ///< what its own menu acts on
    std::shared_ptr<EntryWay const> way; ///< null unless a search found the entry

    [[nodiscard]] static MenuEntry separator();
    [[nodiscard]] static MenuEntry disabled(std::string title);
    /// The title as drawn: the attributed title's text, else the title.
    [[nodiscard]] std::string const& visibleTitle() const { return attributedTitle ? attributedTitle->text : title; }
};

/// Always made by std::make_shared: an asynchronous fill holds its menu weakly.
class Menu : public std::enable_shared_from_this<Menu> {
public:
    explicit Menu(std::string menuTitle = {})
        : title(std::move(menuTitle))
    {
    }
    Menu(Menu const&) = delete;
    Menu& operator=(Menu const&) = delete;

    std::string title;
    std::weak_ptr<MenuDelegate> delegate;
    std::weak_ptr<MenuDelegate> keyDelegate; ///< answers for keys and searches instead, where another one fills the menu
    std::vector<MenuEntry> entries;

    /// Called by didRefill() after an asynchronous fill. Set by the mirror that shows the menu,
    /// reset when it closes.
    std::function<void()> onRefilled;

    /// Lets the delegate, if any, fill the menu; called right before it opens.
    void needsUpdate();
    void didClose();
    [[nodiscard]] std::shared_ptr<MenuActionTarget> targetForKey(KeyPress const& press) const;
    /// A search through the submenus below `start`, this menu or one below it; null where nothing is searched.
    [[nodiscard]] std::shared_ptr<MenuSearch> searchBelow(Menu const& start) const;
    [[nodiscard]] bool isOpen() const { return onRefilled != nullptr; }
    /// Tells a mirror that the entries changed while the menu was open.
    void didRefill() const;

private:
    [[nodiscard]] std::shared_ptr<MenuDelegate> answering() const;
};

} // namespace zv
