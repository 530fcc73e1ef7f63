#pragma once

namespace zv {

/// Has sentences come from the tables of the application's bundle, which the build makes of the catalogues: the system
/// chooses the language, for the application or for all. Called once, at the start.
void useMessageCatalogue();

} // namespace zv
