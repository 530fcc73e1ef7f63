#pragma once

#include "app/model/MenuStore.h"
#include "app/model/SetupDocument.h"
#include "platform/SystemKind.h"
#include "platform/files/Files.h"
#include "platform/time/Clock.h"

#include <optional>
#include <string>
#include <vector>

namespace zv {

/// Something that a setup points at and that is not on this machine.
struct MissingTarget {
    std::string title; ///< of what points at it
    std::string path;

    friend bool operator==(MissingTarget const&, MissingTarget const&) = default;
};

/// Collects this machine's setup, and puts another's in its place. Main thread only.
class SetupTransfer {
public:
    struct Services {
        SystemKind system;
        Files const& files;
        std::string home;
        Url itemsFolder;
    };

    /// All references outlive this.
    explicit SetupTransfer(Services services);

    /// This machine's, with that menu.
    [[nodiscard]] Setup collect(std::vector<MenuItem> const& items) const;

    /// The setup as it would be here: what lies below its home folder lies below this one's.
    [[nodiscard]] Setup movedHere(Setup setup) const;
    /// Files, folders and applications that are not here; nothing on a server is looked at.
    [[nodiscard]] std::vector<MissingTarget> missing(Setup const& setup) const;
    /// The preferences that an administrator has locked.
    [[nodiscard]] std::vector<std::string> locked(Setup const& setup) const;

    /// False where an administrator has locked the menu.
    [[nodiscard]] bool takesMenu() const { return !m_services.files.defaults.isLocked(MenuStore::defaultsKey); }
    /// Keeps this machine's setup, with that menu, as a file for its user's eyes; the oldest of more than ten go.
    [[nodiscard]] Result<Url> keep(std::vector<MenuItem> const& items, Url const& folder, WallTime now) const;
    /// Writes the files of own items and of images, and lets the items of `setup` point at them. Nothing else changes.
    [[nodiscard]] Result<void> writeFiles(Setup& setup) const;
    /// Stores the preferences but those that are locked. Whoever caches them reads them anew.
    [[nodiscard]] Result<void> storePreferences(Setup const& setup) const;

private:
    void collectImage(MenuItem const& item, Setup& setup) const;
    [[nodiscard]] std::optional<OwnItem> ownItemOf(MenuItem const& item) const;
    [[nodiscard]] Result<void> pointAtOwnItem(MenuItem& item, Setup const& setup) const;
    [[nodiscard]] Result<void> writeImage(MenuItem& item, Setup const& setup) const;
    [[nodiscard]] LocationServices locations() const;
    [[nodiscard]] Url fileOfImage(std::string const& name) const;

    Services m_services;
    OwnItems m_ownItems;
};

} // namespace zv
