#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QPoint>
#include <QStringList>

#include <functional>
#include <optional>

namespace zv {

/// What other processes may ask of the running program.
struct ProgramRequests {
    std::function<void(std::optional<QPoint>)> showMenu; ///< in pixels; at the pointer when it is not said
    std::function<void()> openSettings;
    std::function<void()> quit;
    std::function<void(QStringList)> addFiles; ///< absolute paths
    std::function<QString()> hotkeys; ///< as JSON
};

/// The one running program on the session bus: whoever owns its name is it. Serves its own
/// interface and the desktop's one for applications.
class BusProgram : public QDBusVirtualObject {
    Q_OBJECT
public:
    BusProgram(QDBusConnection bus, ProgramRequests requests);
    ~BusProgram() override;

    /// False when another process has the name already.
    [[nodiscard]] bool takeName();
    /// Another process may be the running program now.
    void leaveName();

    QString introspect(QString const& path) const override;
    bool handleMessage(QDBusMessage const& message, QDBusConnection const& connection) override;

private:
    struct Method;
    QVariantList showMenu(QVariantList const& arguments);
    QVariantList showMenuAt(QVariantList const& arguments);
    QVariantList openSettings(QVariantList const& arguments);
    QVariantList quit(QVariantList const& arguments);
    QVariantList addFiles(QVariantList const& arguments);
    QVariantList hotkeys(QVariantList const& arguments);
    QVariantList openUrls(QVariantList const& arguments);
    QVariantList activateAction(QVariantList const& arguments);

    void later(std::function<void()> request);

    QDBusConnection m_bus;
    ProgramRequests m_requests;
};

} // namespace zv
