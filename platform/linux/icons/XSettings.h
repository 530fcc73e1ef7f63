#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zv {

/// A string setting among those that a desktop publishes to X11 programs (the bytes of
/// _XSETTINGS_SETTINGS); empty when missing or damaged:
/// https://specifications.freedesktop.org/xsettings-spec, "_XSETTINGS_SETTINGS Format".
[[nodiscard]] std::string xSetting(std::string_view settings, std::string_view name);
/// A number among them; nothing when it is missing.
[[nodiscard]] std::optional<std::int32_t> xSettingNumber(std::string_view settings, std::string_view name);

} // namespace zv
