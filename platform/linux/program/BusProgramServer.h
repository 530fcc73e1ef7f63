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

/// What other processes may ask of the running program.
struct ProgramRequests {
    std::function<void(std::optional<QPoint>)> showMenu; ///< in pixels; at the pointer when it is not said
    std::function<void()> openSettings;
    std::function<void()> quit;
    std::function<Result<void>(std::vector<Url>)> addFiles; ///< what is no file is ignored
    std::function<QString()> hotkeys; ///< as JSON
};

/// The one running program on the session bus: whoever owns its name is it. Serves its own
/// interface and the desktop's one for applications.
class BusProgramServer : public QDBusVirtualObject {
    Q_OBJECT
public:
    BusProgramServer(QDBusConnection bus, ProgramRequests requests);
    ~BusProgramServer() override;

    /// False when another process has the name already.
    [[nodiscard]] bool takeName();
    /// Another process may be the running program now.
    void leaveName();

    QString introspect(QString const& path) const override;
    bool handleMessage(QDBusMessage const& message, QDBusConnection const& connection) override;

private:
    struct Method;
    using Answer = Result<QVariantList>; ///< a failure is a sentence for who asked
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
