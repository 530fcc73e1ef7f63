#pragma once

#include "platform/linux/looks/DesktopLook.h"
#include "platform/linux/posix/FileWatch.h"
#include "platform/linux/toolkit/ColorScheme.h"

#include <QAbstractNativeEventFilter>
#include <QDBusConnection>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <memory>

namespace zv {

/// Gives this program the desktop's icons, colours and font, and follows them while it runs. Where the user has chosen
/// a theme for the toolkit, and where the toolkit's own part for the desktop sets colours, only dark and light are
/// followed.
class LookFollower : public QObject, private QAbstractNativeEventFilter {
public:
    /// Adopts the look at once. `chosenTheme` is the user's choice for the toolkit (QT_QPA_PLATFORMTHEME).
    LookFollower(LookSources sources, std::string const& chosenTheme);
    ~LookFollower() override;

    /// Asks the desktop on the bus whether it is dark, and hears of changes.
    void useBus(QDBusConnection const& bus);

    /// Called after a look was adopted while the program runs.
    std::function<void()> onAdopted;

private:
    bool nativeEventFilter(QByteArray const& type, void* event, qintptr* result) override;
    void watchPublisher();
    void watchSettings();
    void adopt();
    void adoptColors(std::optional<ThemeLook> const& theme) const;

    LookSources m_sources;
    bool m_isChosen;
    bool m_followsColors;
    bool m_isDark = false;
    std::uint32_t m_publisher = 0; ///< the window that publishes settings
    std::uint32_t m_managerMessage = 0; ///< tells of a new one
    FileWatch m_file;
    std::unique_ptr<QSocketNotifier> m_fileEvents;
    QTimer m_soon; ///< several changes come together
    std::unique_ptr<ColorScheme> m_colorScheme;
};

} // namespace zv
