#pragma once

#include "platform/linux/apps/ClientWindows.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QString>
#include <QTemporaryFile>

#include <functional>
#include <map>

namespace zv {

/// The windows of KWin, which tells them to its own scripts alone: a script of ours in it reports
/// them back over the bus.
class KWinWindows : public QDBusVirtualObject, public ClientWindows {
    Q_OBJECT
public:
    /// Null where no KWin is on the bus.
    [[nodiscard]] static std::unique_ptr<ClientWindows> on(QDBusConnection const& bus);
    ~KWinWindows() override;

    void withList(std::function<void(List)> done) override;
    void activate(std::uint32_t window) override;
    void close(std::uint32_t window) override;

    QString introspect(QString const&) const override { return {}; }
    bool handleMessage(QDBusMessage const& message, QDBusConnection const& bus) override;

private:
    explicit KWinWindows(QDBusConnection bus);
    void run(QString const& script);
    void found(QList<QVariant> const& facts);
    void finish(List const& list);

    QDBusConnection m_bus;
    QTemporaryFile m_script;
    std::vector<std::function<void(List)>> m_waiting;
    std::vector<ClientWindow> m_found;
    std::map<QString, std::uint32_t> m_numbers; ///< by KWin's own names of the windows
    std::uint32_t m_pass = 0;
};

} // namespace zv
