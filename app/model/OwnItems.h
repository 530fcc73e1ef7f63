#pragma once

#include "base/PropertyList.h"
#include "base/Result.h"
#include "base/Url.h"
#include "platform/SystemKind.h"
#include "platform/files/FileSystem.h"

#include <optional>
#include <string>

namespace zv {

/// An item of the user's own making, as the user wrote it.
struct OwnItem {
    enum class Kind { link, command, scriptMenu };
    Kind kind = Kind::link;
    std::string title;
    std::string text; ///< the address, or the line for the user's shell
    std::string folder; ///< where the line runs; empty for the home folder
    bool inTerminal = false; ///< of commands

    friend bool operator==(OwnItem const&, OwnItem const&) = default;
};

/// The files of the user's own items, in a hidden folder beside the Items folder that nobody else can read or write. An
/// ordinary file item points at each, so that a version that knows nothing of them opens it: on Linux application
/// entries and scripts, on a Mac .webloc, .command and scripts. A definition lies beside each, for editing.
/// A script menu is told by where it lies and by its name alone, never by what a menu says: menus come from others, too.
class OwnItems {
public:
    OwnItems(SystemKind system, Url const& itemsFolder, FileSystem& files);
    [[nodiscard]] static Url folderBeside(Url const& itemsFolder);

    [[nodiscard]] bool contains(Url const& file) const;
    [[nodiscard]] bool isScriptMenu(Url const& file) const;
    /// A script that runs unseen, by us: no system starts such a file without a terminal's window.
    [[nodiscard]] bool isQuietScript(Url const& file) const;

    /// The definition of an item's file; empty for any other file.
    [[nodiscard]] std::optional<OwnItem> read(Url const& file) const;
    /// Writes the item's files, in the place of those of `instead`. Gives the one to point at.
    [[nodiscard]] Result<Url> write(OwnItem const& item, std::optional<Url> const& instead = std::nullopt) const;
    /// Writes a command that opens a terminal's window, for once.
    [[nodiscard]] Result<Url> writeForTerminal(std::string const& line) const;

private:
    [[nodiscard]] Result<Url> writeFiles(OwnItem const& item, std::string const& stem) const;
    [[nodiscard]] Result<Url> writeLink(OwnItem const& item, std::string const& stem) const;
    [[nodiscard]] Result<Url> writeCommand(OwnItem const& item, std::string const& stem) const;
    [[nodiscard]] Result<Url> put(std::string const& name, std::string const& text) const;
    [[nodiscard]] Url definitionOf(std::string const& stem) const { return m_folder.appending(stem + ".plist"); }

    SystemKind m_system;
    Url m_folder;
    FileSystem& m_files;
};

/// An item as it is kept for editing, and back; empty for what is none.
[[nodiscard]] PropertyList ownItemRecord(OwnItem const& item);
[[nodiscard]] std::optional<OwnItem> ownItemOf(PropertyList const& record);

/// The text as one word of a shell's line.
[[nodiscard]] std::string quotedForShell(std::string_view text);

} // namespace zv
