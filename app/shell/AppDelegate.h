#pragma once

namespace zv {

/// What launching builds, a step each. Main thread only.
class LaunchSteps {
public:
    virtual ~LaunchSteps() = default;
    /// True when a copy of the program takes over: nothing else is to be built.
    [[nodiscard]] virtual bool relocateIfNeeded() = 0;
    virtual void makeStatusItem() = 0;
    virtual void makeDockIcon() = 0;
    virtual void setServicesProvider() = 0;
    virtual void startUpdater() = 0;
    virtual void showNotesIfDue() = 0;
    virtual void openSettings() = 0;
};

/// Receives what the system tells the application. The steps outlive it.
class AppDelegate {
public:
    explicit AppDelegate(LaunchSteps& steps)
        : m_steps(steps)
    {
    }

    enum class Launch { running, relocated };
    /// The start-up sequence, in its order.
    Launch applicationDidFinishLaunching();
    /// The program was opened once more while it runs, whatever windows it has: true, as it
    /// was dealt with by opening the settings.
    bool applicationShouldHandleReopen(bool hasVisibleWindows);

private:
    LaunchSteps& m_steps;
};

} // namespace zv
