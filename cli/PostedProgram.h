#pragma once

#include "app/shell/ProgramRequest.h"
#include "platform/ProgramPost.h"

namespace zv {

/// The running program, asked by post.
class PostedProgram : public RunningProgram {
public:
    /// `post` outlives this.
    explicit PostedProgram(ProgramPost& post)
        : m_post(post)
    {
    }

    bool isRunning() const override { return m_post.isRunning(); }
    MaybeFailure<> showMenu(std::optional<ScreenPoint> at) override;
    MaybeFailure<> openSettings() override;
    MaybeFailure<> quit() override;
    MaybeFailure<> addFiles(std::vector<Url> const& files) override;
    Result<std::string> hotkeys() override;
    /// What it found out about its system, in a form of that system's own.
    [[nodiscard]] Result<std::string> findings();

private:
    enum class Starting { allowed, forbidden };

    [[nodiscard]] ProgramAnswer ask(ProgramRequest const& request, Starting starting);
    [[nodiscard]] MaybeFailure<> tell(ProgramRequest const& request, Starting starting);

    ProgramPost& m_post;
};

} // namespace zv
