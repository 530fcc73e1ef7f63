#pragma once

#include <cstddef>
#include <string>

/// The settings window's texts on every system. GeneralSettings words the rows of the General page,
/// AboutText the About page, SettingsWording what differs between systems. Each is a whole title or
/// sentence, which front ends show unchanged.
namespace zv::settingsTexts {

using Text = char const*;

/// A button, and a sentence about its effect.
struct Button {
    Text title;
    Text help;
};

// The window.
inline constexpr Text windowTitle = "Zanthe Vell Settings";
inline constexpr Text tabs = "Settings"; ///< for assistive tools
inline constexpr Text generalTab = "General";
inline constexpr Text menuTab = "Menu";
inline constexpr Text aboutTab = "About";

// The library.
inline constexpr Text library = "Library"; ///< for assistive tools
inline constexpr Text search = "Search";
inline constexpr Text searchLibrary = "Search the library"; ///< for assistive tools; it searches the menu, too
inline constexpr Text nothingFound = "Nothing in the library or in your menu matches.";
inline constexpr Text inYourMenu = "In Your Menu";
inline constexpr Button showInMenu { "Show in Menu", "Selects the item in your menu" };

// The outline.
inline constexpr Text outline = "Menu"; ///< for assistive tools
inline constexpr Text titleColumn = "Menu";
inline constexpr Text shortcutColumn = "Shortcut";
inline constexpr Text separator = "Separator"; ///< for assistive tools
inline constexpr Text separatorLine = "――――――";
inline constexpr Text emptyMenu = "Your menu is empty. Drag things here from the library, or add them with the buttons below.";

// The outline's buttons and commands.
inline constexpr Button addFile { "File…", "Adds files and applications" };
inline constexpr Button addFolder { "Folder…", "Adds a folder, which opens as a submenu" };
inline constexpr Button addSubmenu { "Submenu", "Adds an empty submenu" };
inline constexpr Button addSeparator { "Separator", "Adds a line" };
inline constexpr Button remove { "Remove", "Removes what is selected" };
inline constexpr Text restoreDefaultMenu = "Restore Default Menu…";
inline constexpr Text undo = "Undo"; ///< the toolkit adds the edit's name
inline constexpr Text redo = "Redo";
inline constexpr Text cut = "Cut";
inline constexpr Text copy = "Copy";
inline constexpr Text paste = "Paste";
inline constexpr Text duplicate = "Duplicate";
inline constexpr Text deleteSelected = "Delete";
inline constexpr Text moveUp = "Move Up";
inline constexpr Text moveDown = "Move Down";

// The panels for choosing files.
inline constexpr Text chooseFiles = "Add Files";
inline constexpr Text chooseFolder = "Add Folder";
inline constexpr Text chooseTarget = "Choose Target";
inline constexpr Text importMenu = "Import Menu";
inline constexpr Text menuDocuments = "Menus";
inline constexpr Text allFiles = "All files";

// The inspector.
inline constexpr Text title = "Title";
inline constexpr Text target = "Target";
inline constexpr Button choose { "Choose…", "Chooses another target" };
inline constexpr Text editOwn = "Edit…"; ///< in its place for items of the user's own
inline constexpr Button reveal { "Reveal", "Shows where the target lies" };
inline constexpr Text shortcut = "Shortcut";
inline constexpr Text listing = "Order and choice";
inline constexpr Text listingHelp = "Chooses what the folder shows, and in which order";
inline constexpr Text hidden = "Hide in the menu";
[[nodiscard]] std::string selected(std::size_t count); ///< for any count but one

// The recorder of shortcuts.
inline constexpr Text recorder = "Shortcut"; ///< for assistive tools
[[nodiscard]] std::string recorderWith(std::string const& value); ///< for assistive tools that read no values of buttons
inline constexpr Button showOwner { "Show", "Shows the item that has this combination" };
inline constexpr Text recorderHelp = "Click, then press the key combination you want.";
inline constexpr Text recording = "Press keys…";
inline constexpr Text noShortcut = "None";
inline constexpr Text clear = "Clear";
inline constexpr Text clearShortcut = "Clear shortcut"; ///< for assistive tools

// Items that could not be added.
inline constexpr Text itemsNotAdded = "The items could not be added.";
inline constexpr Text itemNotChanged = "The item could not be changed.";
[[nodiscard]] std::string filesNotAdded(std::size_t count);
[[nodiscard]] std::string doesNotExist(std::string const& path);
/// A reason that a system or a reader gave, as the sentence of an alert: it begins with a capital.
[[nodiscard]] std::string asSentence(std::string const& reason);

} // namespace zv::settingsTexts
