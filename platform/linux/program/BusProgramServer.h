#pragma once

#include "base/Result.h"
#include "platform/program/RunningProgram.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>

#include <functional>

namespace zv {

/// The running program on the session bus, identified by owning its name. Serves its own
/// interface and the desktop's one for applications.
class BusProgramServer : public QDBusVirtualObject {
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

    QString introspect(QString const& path) const override;
    bool handleMessage(QDBusMessage const& message, QDBusConnection const& connection) override;

private:
    struct Method;
    using Answer = Result<QVariantList>; ///< a failure is a sentence for the caller
    Answer showMenu(QVariantList const& arguments);
    Answer showMenuAt(QVariantList const& arguments);
    Answer openSettings(QVariantList const& arguments);
    Answer quit(QVariantList const& arguments);
    Answer addFiles(QVariantList const& arguments);
    Answer hotkeys(QVariantList const& arguments);
    Answer activateAction(QVariantList const& arguments);

    void later(std::function<void()> request);

    QDBusConnection m_bus;
    ProgramHandlers m_handlers;
};

} // namespace zv
