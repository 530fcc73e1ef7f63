#pragma once

#include "base/Result.h"
#include "base/Url.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QPoint>

#include <functional>
#include <optional>
#include <vector>

namespace zv {

/// The requests that other processes may make of the running program.
struct ProgramRequests {
    std::function<void(std::optional<QPoint>)> showMenu; ///< in pixels; at the pointer without a position
    std::function<void()> openSettings;
    std::function<void()> quit;
    std::function<Result<void>(std::vector<Url>)> addFiles; ///< URLs that are not files are ignored
    std::function<QString()> hotkeys; ///< the hotkey report as JSON
};

/// The running program on the session bus, identified by owning its name. Serves its own
/// interface and the desktop's one for applications.
class BusProgramServer : public QDBusVirtualObject {
    Q_OBJECT
public:
    BusProgramServer(QDBusConnection bus, ProgramRequests requests);
    ~BusProgramServer() override;

    /// False when another process has the name already.
    [[nodiscard]] bool takeName();
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
    ProgramRequests m_requests;
};

} // namespace zv
