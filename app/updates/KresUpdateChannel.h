#pragma once

#include "platform/files/Resources.h"
#include "platform/program/UpdateEngine.h"

#include <string_view>

namespace zv {

/// True for a pre-release version: one of the words a, alpha, b, beta or rc follows a digit, with
/// only blanks, dots, hyphens and underscores between. Case is ignored: 2.0b3, 2.0-rc1 and "2.0
/// Beta" are, "Aurora 2.0" and "2.0 build 7" are not.
[[nodiscard]] bool isPreReleaseVersion(std::string_view version);

/// Opts pre-release builds into the channel "beta"; release builds see only the default one.
class KresUpdateChannelDelegate : public UpdateChannels {
public:
    explicit KresUpdateChannelDelegate(Resources const& resources)
        : m_resources(resources)
    {
    }
    std::set<std::string> allowedChannels() const override;

private:
    Resources const& m_resources;
};

} // namespace zv
