#pragma once

#include "base/Translation.h"

#include <cstddef>
#include <string>

/// The settings window's texts on every system. GeneralSettings words the rows of the General page,
/// AboutText the About page, SettingsWording what differs between systems. Each is a whole title or
/// sentence, which front ends look up by tr() and show unchanged.
namespace zv::settingsTexts {

using Text = Sentence;

/// A button, and a sentence about its effect.
struct Button {
    Text title;
    Text help;
};

// The window.
inline constexpr Text windowTitle = mark("Zanthe Vell Settings");
inline constexpr Text tabs = mark("Settings"); ///< for assistive tools
inline constexpr Text generalTab = markc("tab", "General");
inline constexpr Text menuTab = markc("tab", "Menu");
inline constexpr Text aboutTab = markc("tab", "About");

// The library.
inline constexpr Text library = mark("Library"); ///< for assistive tools
inline constexpr Text search = markc("field", "Search");
inline constexpr Text searchLibrary = mark("Search the library"); ///< for assistive tools; it searches the menu, too
inline constexpr Text nothingFound = mark("Nothing in the library or in your menu matches.");
inline constexpr Text inYourMenu = mark("In Your Menu");
inline constexpr Button showInMenu { mark("Show in Menu"), mark("Selects the item in your menu") };

// The outline.
inline constexpr Text outline = mark("Menu"); ///< for assistive tools
inline constexpr Text titleColumn = mark("Menu");
inline constexpr Text shortcutColumn = mark("Shortcut");
inline constexpr Text separator = mark("Separator"); ///< for assistive tools
inline constexpr char const* separatorLine = "――――――";
inline constexpr Text emptyMenu = mark("Your menu is empty. Drag things here from the library, or add them with the buttons below.");

// The outline's buttons and commands.
inline constexpr Button addFile { markc("button that adds one to the menu", "File…"), mark("Adds files and applications") };
inline constexpr Button addFolder { markc("button that adds one to the menu", "Folder…"), mark("Adds a folder, which opens as a submenu") };
inline constexpr Button addSubmenu { mark("Submenu"), mark("Adds an empty submenu") };
inline constexpr Button addSeparator { mark("Separator"), mark("Adds a line") };
inline constexpr Button remove { markc("button", "Remove"), mark("Removes what is selected") };
inline constexpr Text restoreDefaultMenu = mark("Restore Default Menu…");
/// Commands that take an edit back, or make it again; the edit is empty where there is none.
[[nodiscard]] std::string undo(std::string const& edit);
[[nodiscard]] std::string redo(std::string const& edit);
inline constexpr Text cut = mark("Cut");
inline constexpr Text copy = markc("menu bar", "Copy");
inline constexpr Text paste = mark("Paste");
inline constexpr Text duplicate = mark("Duplicate");
inline constexpr Text deleteSelected = markc("menu bar", "Delete");
inline constexpr Text moveUp = mark("Move Up");
inline constexpr Text moveDown = mark("Move Down");

// The panels for choosing files.
inline constexpr Text chooseFiles = mark("Add Files");
inline constexpr Text chooseFolder = mark("Add Folder");
inline constexpr Text chooseTarget = mark("Choose Target");
inline constexpr Text importMenu = mark("Import Menu");
inline constexpr Text menuDocuments = markc("kind of document", "Menus");
inline constexpr Text allFiles = mark("All files");

// The inspector.
inline constexpr Text title = markc("of an entry", "Title");
inline constexpr Text target = markc("of an entry", "Target");
inline constexpr Button choose { markc("button", "Choose…"), mark("Chooses another target") };
inline constexpr Text editOwn = markc("an entry of the menu", "Edit…"); ///< in its place for items of the user's own
inline constexpr Button reveal { markc("button", "Reveal"), mark("Shows where the target lies") };
inline constexpr Text shortcut = mark("Shortcut");
inline constexpr Text listing = markc("of a folder’s entries", "Order and choice");
inline constexpr Text listingHelp = mark("Chooses what the folder shows, and in which order");
inline constexpr Text hidden = mark("Hide in the menu");
[[nodiscard]] std::string selected(std::size_t count); ///< for any count but one
[[nodiscard]] std::string withValue(Text const& label, std::string const& value); ///< for assistive tools that read no values of buttons

// The recorder of shortcuts.
inline constexpr Text recorder = mark("Shortcut"); ///< for assistive tools
inline constexpr Button showOwner { markc("button", "Show"), mark("Shows the item that has this combination") };
inline constexpr Text recorderHelp = mark("Click, then press the key combination you want.");
inline constexpr Text recording = mark("Press keys…");
inline constexpr Text noShortcut = markc("shortcut", "None");
inline constexpr Text clear = markc("button", "Clear");
inline constexpr Text clearShortcut = mark("Clear shortcut"); ///< for assistive tools

// Items that could not be added.
inline constexpr Text itemsNotAdded = mark("The items could not be added.");
inline constexpr Text missingFile = mark("This item points at a file that no longer exists.");
inline constexpr Text itemNotChanged = mark("The item could not be changed.");
[[nodiscard]] std::string filesNotAdded(std::size_t count);
[[nodiscard]] std::string doesNotExist(std::string const& path);
/// A reason that a system or a reader gave, as the sentence of an alert: it begins with a capital.
[[nodiscard]] std::string asSentence(std::string const& reason);

} // namespace zv::settingsTexts
