#pragma once

#include "platform/RunningProgram.h"

#include <memory>
#include <string>
#include <vector>

typedef struct _GVariant GVariant;

namespace zv {

/// Asks the running program over the session bus. Waits for the answer, a few seconds at
/// most; connects at the first question.
class BusRunningProgram : public RunningProgram {
public:
    BusRunningProgram();
    ~BusRunningProgram() override;

    bool isRunning() const override;
    MaybeFailure<> showMenu(std::optional<ScreenPoint> at) override;
    MaybeFailure<> openSettings() override;
    MaybeFailure<> quit() override;
    Result<std::string> hotkeys() override;
    /// Absolute paths of files for the Items folder.
    MaybeFailure<> addFiles(std::vector<std::string> const& paths);

private:
    struct Connection;
    [[nodiscard]] Result<GVariant*> ask(char const* method, GVariant* arguments);
    [[nodiscard]] MaybeFailure<> tell(char const* method, GVariant* arguments);

    std::unique_ptr<Connection> m_connection;
};

} // namespace zv
