#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

#import <ServiceManagement/ServiceManagement.h>

namespace zv {

namespace {

class MacLoginService : public LoginService {
public:
    Status status() const override
    {
        switch (SMAppService.mainAppService.status) {
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

    Result<void, Error> registerService() override
    {
        NSError* error = nil;
        BOOL const done = [SMAppService.mainAppService registerAndReturnError:&error];
        // Registering an entry that the user switched off fails as well; its state then says why.
        return resultOf(done || status() == Status::requiresApproval, error);
    }

    Result<void, Error> unregisterService() override
    {
        NSError* error = nil;
        BOOL const done = [SMAppService.mainAppService unregisterAndReturnError:&error];
        return resultOf(done, error);
    }

    void openSystemSettings() override { [SMAppService openSystemSettingsLoginItems]; }

private:
    static Result<void, Error> resultOf(bool succeeded, NSError* error)
    {
        if (succeeded)
            return {};
        return Failure { Error { static_cast<std::int32_t>(error.code), describe(error) } };
    }
};

} // namespace

std::unique_ptr<LoginService> makeLoginService() { return std::make_unique<MacLoginService>(); }

} // namespace zv
