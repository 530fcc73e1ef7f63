#include "platform/linux/toolkit/DesktopDiagnostics.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSysInfo>

namespace zv {

std::string desktopDiagnostics(Environment const& environment, bool hasTray)
{
    auto const desktop = valueOf(environment, "XDG_CURRENT_DESKTOP");
    QStringList lines;
    lines << QStringLiteral("Zanthe Vell " ZV_VERSION);
    lines << QSysInfo::prettyProductName() + QStringLiteral(", kernel ") + QSysInfo::kernelVersion() + QStringLiteral(", ")
            + QSysInfo::currentCpuArchitecture();
    lines << QStringLiteral("Desktop: ") + (desktop.empty() ? QStringLiteral("unknown") : QString::fromStdString(desktop));
    lines << QStringLiteral("Display: ") + QGuiApplication::platformName() + QStringLiteral(", Qt ") + QLatin1StringView(qVersion());
    for (auto const* screen : QGuiApplication::screens())
        lines << QStringLiteral("Screen: %1×%2 at %3").arg(screen->geometry().width()).arg(screen->geometry().height()).arg(screen->devicePixelRatio());
    lines << (hasTray ? QStringLiteral("Status icons: shown by the panel") : QStringLiteral("Status icons: nothing here shows them"));
    return lines.join(QLatin1Char('\n')).toStdString();
}

} // namespace zv
