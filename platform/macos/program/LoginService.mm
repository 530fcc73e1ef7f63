#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

#import <ServiceManagement/ServiceManagement.h>

namespace zv {

namespace {

class MacLoginService : public LoginService {
public:
    Status status() const override
    {
        switch ([[SMAppService mainAppService] status]) {
        case SMAppServiceStatusEnabled:
            return Status::enabled;
        case SMAppServiceStatusRequiresApproval:
            return Status::requiresApproval;
        case SMAppServiceStatusNotFound:
            return Status::notFound;
        case SMAppServiceStatusNotRegistered:
            break;
        }
        return Status::notRegistered;
    }

    std::optional<Error> registerService() override
    {
        NSError* error = nil;
        BOOL const done = [[SMAppService mainAppService] registerAndReturnError:&error];
        // Registering what the user switched off fails as well; its state then says why.
        return done || status() == Status::requiresApproval ? std::nullopt : std::optional(errorOf(error));
    }

    std::optional<Error> unregisterService() override
    {
        NSError* error = nil;
        return [[SMAppService mainAppService] unregisterAndReturnError:&error] ? std::nullopt : std::optional(errorOf(error));
    }

    void openSystemSettings() override { [SMAppService openSystemSettingsLoginItems]; }

private:
    static Error errorOf(NSError* error) { return { static_cast<std::int32_t>([error code]), describe(error) }; }
};

} // namespace

std::unique_ptr<LoginService> makeLoginService()
{
    return std::make_unique<MacLoginService>();
}

} // namespace zv
