#pragma once

#include "base/Result.h"
#include "platform/program/RunningProgram.h"

#include <QDBusConnection>
#include <QThread>
#include <QVariantList>

#include <functional>
#include <memory>
#include <optional>

class QDBusMessage;

namespace zv {

/// The running program on the session bus, identified by owning its name. Serves its own
/// interface and the desktop's one for applications. Requests are performed on the main thread; what
/// the program holds is told at once, by a thread of its own, however busy the main thread is.
class BusProgramServer : public QObject {
    Q_OBJECT
public:
    BusProgramServer(QDBusConnection bus, ProgramHandlers handlers);
    ~BusProgramServer() override;

    /// False when another process has the name already.
    [[nodiscard]] bool takeName();
    /// Serves on a new connection, after the former was lost.
    void useBus(QDBusConnection const& bus) { m_bus = bus; }
    /// Gives up the name, so that another process may be the running program.
    void leaveName();

private:
    struct Method;
    class Reception;
    void perform(QDBusMessage const& message, QDBusConnection const& connection);
    using Answer = Result<QVariantList>; ///< a failure is a sentence for the caller
    Answer showMenu(QVariantList const& arguments);
    Answer showMenuAt(QVariantList const& arguments);
    Answer showMenuAt(std::optional<RunningProgram::ScreenPoint> at);
    Answer takeActivationToken(QVariantList const& arguments);
    Answer openSettings(QVariantList const& arguments);
    Answer quit(QVariantList const& arguments);
    Answer addFiles(QVariantList const& arguments);
    Answer activateAction(QVariantList const& arguments);

    void later(std::function<void()> request);

    QDBusConnection m_bus;
    ProgramHandlers m_handlers;
    QThread m_thread;
    std::unique_ptr<Reception> m_reception; ///< lives on that thread
};

} // namespace zv
