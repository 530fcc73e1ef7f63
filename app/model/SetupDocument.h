#pragma once

#include "app/model/MenuDocument.h"
#include "app/model/OwnItems.h"
#include "app/model/ReadFailure.h"
#include "base/PropertyList.h"
#include "base/Result.h"
#include "base/Uuid.h"

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace zv {

/// All that the user has made, to be taken to another machine in one file: the menu, the preferences, the user's own
/// items and the images that items have for pictures. Own items travel as they were typed, without any file.
struct Setup {
    ImportedMenu menu;
    std::string home; ///< the home folder there, without a final slash
    PropertyListDictionary preferences;
    std::map<Uuid, OwnItem> ownItems; ///< by the menu's item that points at one
    std::map<std::string, PropertyListData> images; ///< by the name that items have for them
    std::vector<std::string> unknown; ///< the names of parts and preferences that this version cannot use
};

/// A setup as a property list, for a file or for a setup that is to be compared. Its "Menu" is a menu document, so that
/// versions that know no setups import that.
[[nodiscard]] Result<std::vector<std::byte>> setupDocument(Setup const& setup);

/// True for a setup, readable or not; every other file may be a menu.
[[nodiscard]] bool isSetup(std::span<std::byte const> bytes);

/// Reads a setup that anybody may have made. What is wrong in it refuses the whole; what a later version added is named.
[[nodiscard]] Result<Setup, ReadFailure> readSetup(std::span<std::byte const> bytes, LocationServices services);

/// Bounds of what a setup may bring.
struct SetupLimits {
    static constexpr std::size_t ownItems = 1000;
    static constexpr std::size_t textLength = 16384; ///< of each text of one
    static constexpr std::size_t images = 10'000;
    static constexpr std::size_t imageSize = std::size_t { 1 } << 20;
    static constexpr std::int64_t number = 1'000'000; ///< of a preference
    static constexpr std::size_t keptEntries = 1000;
};

/// The keys of all preferences that a setup holds.
[[nodiscard]] std::vector<std::string_view> setupPreferenceKeys();

} // namespace zv
