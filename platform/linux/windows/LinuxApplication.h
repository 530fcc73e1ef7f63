#pragma once

#include "platform/desk/Application.h"

#include <QApplication>

namespace zv {

/// This program as an application of the toolkit that goes on without windows. The desktop has no
/// Dock icon to show or hide, so the policy is only stored.
class LinuxApplication : public QApplication, public Application {
    Q_OBJECT
public:
    /// The arguments name the display server (-platform); `count` and `arguments` outlive it.
    LinuxApplication(int& count, char** arguments);

    void activate() override;
    void terminate() override;
    bool isTerminating() const override { return m_isTerminating; }
    bool isActive() const override;
    bool isHidden() const override { return false; }
    ActivationPolicy activationPolicy() const override { return m_policy; }
    void setActivationPolicy(ActivationPolicy policy) override { m_policy = policy; }
    std::vector<WindowState> windows() const override;

    bool notify(QObject* receiver, QEvent* event) override;

protected:
    bool event(QEvent* event) override;

private:
    bool m_isTerminating = false;
    ActivationPolicy m_policy = ActivationPolicy::accessory;
};

} // namespace zv
