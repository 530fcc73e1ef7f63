#pragma once

#include "platform/linux/posix/FileDescriptor.h"

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace zv {

/// Turns SIGTERM, SIGINT and SIGHUP of other processes into an orderly end. Only one instance at a time.
class TerminationSignals {
public:
    explicit TerminationSignals(std::function<void()> onSignal);
    ~TerminationSignals();
    TerminationSignals(TerminationSignals const&) = delete;
    TerminationSignals& operator=(TerminationSignals const&) = delete;

private:
    FileDescriptor m_readingEnd, m_writingEnd;
    std::unique_ptr<QSocketNotifier> m_notifier; ///< destroyed before its descriptor is closed
};

} // namespace zv
