#include "platform/linux/machine/LinuxComputerInfo.h"

#include "platform/linux/posix/OsRelease.h"
#include "platform/text/Text.h"

#include <sys/utsname.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <utility>
#include <vector>

namespace zv {

namespace {

std::string firstLine(std::string const& path)
{
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    line.erase(std::find(line.begin(), line.end(), '\0'), line.end()); // texts of a device tree end in a null character
    return withValidUtf8(trimmed(line));
}

/// The value of the first line "key : value".
std::string valueOf(std::string const& path, std::string_view key)
{
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        auto const colon = line.find(':');
        if (colon != std::string::npos && trimmed(std::string_view(line).substr(0, colon)) == key)
            return withValidUtf8(trimmed(std::string_view(line).substr(colon + 1)));
    }
    return {};
}

std::size_t processorCount(std::string const& path)
{
    std::ifstream file(path);
    std::size_t count = 0;
    for (std::string line; std::getline(file, line);)
        count += line.starts_with("processor") ? 1 : 0;
    return count;
}

/// proc_cpuinfo(5).
std::string processor(std::string const& root)
{
    auto const file = root + "proc/cpuinfo";
    auto name = valueOf(file, "model name");
    if (name.empty())
        name = valueOf(file, "Model");
    auto const count = processorCount(file);
    if (name.empty() || count < 2)
        return name;
    return name + " × " + std::to_string(count);
}

/// proc_meminfo(5).
std::string memory(std::string const& root)
{
    auto const text = valueOf(root + "proc/meminfo", "MemTotal");
    std::uint64_t kibibytes = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), kibibytes).ec != std::errc())
        return {};
    std::array<char, 32> formatted {};
    std::snprintf(formatted.data(), formatted.size(), "%.1f GB", static_cast<double>(kibibytes) / (1024.0 * 1024.0));
    return formatted.data();
}

/// Whether the text is one of the placeholders of unconfigured firmware.
bool isPlaceholder(std::string_view text)
{
    constexpr std::string_view placeholders[] = { "", "System manufacturer", "System Product Name", "To Be Filled By O.E.M.", "Default string" };
    return std::ranges::find(placeholders, text) != std::end(placeholders);
}

std::string machine(std::string const& root)
{
    std::string name;
    for (auto const* part : { "sys_vendor", "product_name" }) {
        auto const text = firstLine(root + "sys/class/dmi/id/" + part);
        if (!isPlaceholder(text))
            name += (name.empty() ? "" : " ") + text;
    }
    return name.empty() ? firstLine(root + "proc/device-tree/model") : name;
}

/// "8086" of "0x8086".
std::string hexDigits(std::string const& text) { return text.starts_with("0x") ? text.substr(2) : text; }

/// The maker and device for PCI numbers, from the list that every distribution ships.
std::string deviceName(std::string const& root, std::string const& vendor, std::string const& device)
{
    for (auto const* place : { "usr/share/misc/pci.ids", "usr/share/hwdata/pci.ids" }) {
        std::ifstream file(root + place);
        std::string maker;
        for (std::string line; std::getline(file, line);) {
            if (line.starts_with(vendor + "  "))
                maker = line.substr(vendor.size() + 2);
            else if (!maker.empty() && line.starts_with("\t" + device + "  "))
                return withValidUtf8(maker + " " + line.substr(device.size() + 3));
            else if (!maker.empty() && !line.starts_with('\t') && !line.starts_with('#'))
                return withValidUtf8(maker);
        }
    }
    return {};
}

std::string graphics(std::string const& root)
{
    std::vector<std::string> names;
    std::error_code error;
    for (auto const& card : std::filesystem::directory_iterator(root + "sys/class/drm", error)) {
        auto const vendor = hexDigits(firstLine(card.path().string() + "/device/vendor"));
        auto const device = hexDigits(firstLine(card.path().string() + "/device/device"));
        auto name = vendor.empty() ? "" : deviceName(root, vendor, device);
        if (!name.empty() && std::ranges::find(names, name) == names.end())
            names.push_back(std::move(name));
    }
    std::ranges::sort(names);
    std::string text;
    for (auto const& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

std::string kernel()
{
    utsname names {};
    return ::uname(&names) == 0 ? std::string(names.sysname) + " " + names.release + " (" + names.machine + ")" : "";
}

} // namespace

ComputerFacts LinuxComputerInfo::read(std::string const& root)
{
    auto release = readOsRelease(root + "etc/os-release");
    if (release.empty())
        release = readOsRelease(root + "usr/lib/os-release");
    return { withValidUtf8(release["PRETTY_NAME"]), kernel(), machine(root), processor(root), memory(root), graphics(root) };
}

void LinuxComputerInfo::gather(std::function<void(ComputerFacts)> done)
{
    m_tasks.runDetached([root = m_root, done = std::move(done)] { return std::function<void()>([done, facts = read(root)] { done(facts); }); });
}

} // namespace zv
