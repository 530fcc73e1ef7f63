#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/session/SystemValues.h"

#include <sys/sysctl.h>

namespace zv {

std::string systemText(char const* name)
{
    std::size_t size = 0;
    if (sysctlbyname(name, nullptr, &size, nullptr, 0) != 0 || size == 0)
        return {};
    std::string text(size, '\0');
    if (sysctlbyname(name, text.data(), &size, nullptr, 0) != 0)
        return {};
    return text.c_str(); // the size counts the final zero
}

namespace {

constexpr unsigned long long bytesOfGigabyte = 1ULL << 30;

class MacComputerInfo : public ComputerInfo {
public:
    void gather(std::function<void(ComputerFacts)> done) override
    {
        NSProcessInfo* const process = NSProcessInfo.processInfo;
        ComputerFacts facts;
        facts.system = "macOS " + fromNSString(process.operatingSystemVersionString);
        facts.kernel = systemText("kern.osrelease");
        facts.machine = systemText("hw.model");
        facts.processor = systemText("machdep.cpu.brand_string");
        facts.memory = std::to_string(process.physicalMemory / bytesOfGigabyte) + " GB";
        done(std::move(facts));
    }
};

} // namespace

std::unique_ptr<ComputerInfo> makeComputerInfo() { return std::make_unique<MacComputerInfo>(); }

} // namespace zv
