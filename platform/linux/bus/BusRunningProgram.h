#pragma once

#include "platform/linux/bus/BusConnection.h"
#include "platform/program/RunningProgram.h"

#include <optional>
#include <string>
#include <vector>

namespace zv {

/// Asks the running program over the session bus. Waits a few seconds at most for the answer;
/// connects at the first question.
class BusRunningProgram : public RunningProgram {
public:
    /// `sessionBus` is an address; empty where there is no bus. `activationToken` is what this
    /// process was given to come to the front with, perhaps empty.
    BusRunningProgram(std::string sessionBus, Texts texts, std::string activationToken = {})
        : m_address(std::move(sessionBus))
        , m_texts(std::move(texts))
        , m_activationToken(std::move(activationToken))
    {
    }

    bool isRunning() const override;
    Result<void> showMenu(std::optional<ScreenPoint> at) override;
    Result<void> openSettings() override;
    Result<void> quit() override;
    Result<void> addFiles(std::vector<Url> const& files) override;
    Result<std::string> hotkeys() override;

private:
    [[nodiscard]] BusConnection const* bus() const;
    [[nodiscard]] Result<GVariantRef> ask(char const* method, GVariantRef arguments, char const* replyType, BusConnection::Starting starting);
    void handTokenOver();
    [[nodiscard]] Result<void> tell(char const* method, GVariant* arguments, BusConnection::Starting starting);

    std::string m_address;
    Texts m_texts;
    std::string m_activationToken; ///< empty once it was handed over
    mutable bool m_isConnected = false; ///< also set after a failed attempt
    mutable std::optional<BusConnection> m_bus;
};

} // namespace zv
