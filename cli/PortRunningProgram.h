#pragma once

#include "app/shell/ProgramMessage.h"
#include "platform/program/MessagePort.h"

namespace zv {

/// The running program, reached by messages.
class PortRunningProgram : public RunningProgram {
public:
    /// `post` outlives this.
    explicit PortRunningProgram(MessagePort& post)
        : m_post(post)
    {
    }

    bool isRunning() const override { return m_post.isRunning(); }
    Result<void> showMenu(std::optional<ScreenPoint> at) override;
    Result<void> openSettings() override;
    Result<void> quit() override;
    Result<void> addFiles(std::vector<Url> const& files) override;
    Result<std::string> hotkeys() override;
    /// The running program's findings about its system, in that system's own form.
    [[nodiscard]] Result<std::string> findings();

private:
    enum class Starting { allowed, forbidden };

    [[nodiscard]] ProgramAnswer ask(ProgramMessage const& request, Starting starting);
    [[nodiscard]] Result<void> tell(ProgramMessage const& request, Starting starting);

    MessagePort& m_post;
};

} // namespace zv
