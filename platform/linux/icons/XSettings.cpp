#include "platform/linux/icons/XSettings.h"

#include <cstdint>

namespace zv {

namespace {

/// Reads published settings from the front; stops at the first truncated field.
class SettingsReader {
public:
    explicit SettingsReader(std::string_view bytes)
        : m_rest(bytes)
        , m_isBigEndian(!bytes.empty() && bytes[0] == 1)
    {
    }
    void continueWith(std::string_view bytes) { m_rest = bytes; }
    [[nodiscard]] bool isCut() const { return m_isCut; }
    std::string_view take(std::size_t count)
    {
        m_isCut = m_isCut || count > m_rest.size();
        if (m_isCut)
            return {};
        auto const taken = m_rest.substr(0, count);
        m_rest.remove_prefix(count);
        return taken;
    }
    std::uint32_t number(std::size_t size)
    {
        std::uint32_t value = 0;
        auto const digits = take(size);
        for (std::size_t i = 0; i < digits.size(); ++i)
            value = value << 8 | static_cast<unsigned char>(digits[m_isBigEndian ? i : digits.size() - 1 - i]);
        return value;
    }
    std::string_view padded(std::size_t count)
    {
        auto const text = take(count);
        take((4 - count % 4) % 4);
        return text;
    }

private:
    std::string_view m_rest;
    bool m_isBigEndian;
    bool m_isCut = false;
};

enum Type : std::uint32_t { integer, text, color };

/// The bytes of a setting of the type; nothing when it is missing, or cut.
std::optional<std::string_view> valueOf(std::string_view settings, std::string_view name, Type wanted)
{
    SettingsReader reader(settings);
    reader.take(8); // byte order, padding, serial
    auto const count = reader.number(4);
    for (std::uint32_t i = 0; i < count && !reader.isCut(); ++i) {
        auto const type = reader.number(1);
        reader.take(1);
        auto const nameLength = reader.number(2);
        auto const settingName = reader.padded(nameLength);
        reader.take(4); // serial
        auto const length = type == text ? reader.number(4) : type == color ? 8 : 4;
        auto const value = reader.padded(length);
        if (type == wanted && settingName == name && !reader.isCut())
            return value;
    }
    return std::nullopt;
}

} // namespace

std::string xSetting(std::string_view settings, std::string_view name) { return std::string(valueOf(settings, name, text).value_or("")); }

std::optional<std::int32_t> xSettingNumber(std::string_view settings, std::string_view name)
{
    auto const value = valueOf(settings, name, integer);
    if (!value)
        return std::nullopt;
    // A reader of its own, with the byte order of the whole.
    SettingsReader reader(settings.substr(0, 1));
    reader.continueWith(*value);
    return static_cast<std::int32_t>(reader.number(4));
}

} // namespace zv
