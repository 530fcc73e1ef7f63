#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace zv {

/// Turns SIGTERM, SIGINT and SIGHUP into an orderly end. One at a time.
class TerminationSignals {
public:
    explicit TerminationSignals(std::function<void()> onSignal);
    ~TerminationSignals();
    TerminationSignals(TerminationSignals const&) = delete;
    TerminationSignals& operator=(TerminationSignals const&) = delete;

private:
    int m_ends[2] = { -1, -1 };
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace zv
