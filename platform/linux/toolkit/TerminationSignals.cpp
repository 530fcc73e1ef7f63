#include "platform/linux/toolkit/TerminationSignals.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace zv {

namespace {

constexpr int caught[] = { SIGTERM, SIGINT, SIGHUP };
int writingEnd = -1;

/// GIO raises SIGTERM in this program when its connection to a bus is lost; the menu stays.
/// https://docs.gtk.org/gio/method.DBusConnection.set_exit_on_close.html
extern "C" void tellOfSignal(int, siginfo_t* signal, void*)
{
    if (signal->si_pid == getpid())
        return;
    char const byte = 0;
    [[maybe_unused]] auto const written = write(writingEnd, &byte, 1);
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> onSignal)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_readingEnd = FileDescriptor(ends[0]);
    m_writingEnd = FileDescriptor(ends[1]);
    writingEnd = ends[1];
    m_notifier = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this, onSignal = std::move(onSignal)] {
        char byte;
        [[maybe_unused]] auto const taken = read(m_readingEnd.get(), &byte, 1);
        onSignal();
    });
    struct sigaction action { };
    action.sa_sigaction = tellOfSignal;
    action.sa_flags = SA_RESTART | SA_SIGINFO;
    for (int const signal : caught)
        sigaction(signal, &action, nullptr);
}

TerminationSignals::~TerminationSignals()
{
    for (int const signal : caught)
        std::signal(signal, SIG_DFL);
}

} // namespace zv
