#include "platform/linux/toolkit/ProgramEnvironment.h"

#include <QGuiApplication>
#include <QProcessEnvironment>
#include <QScreen>
#include <QSysInfo>

namespace zv {

Environment processEnvironment()
{
    Environment environment;
    auto const all = QProcessEnvironment::systemEnvironment();
    for (auto const& name : all.keys())
        environment[name.toStdString()] = all.value(name).toStdString();
    return environment;
}

std::string desktopDiagnostics(bool hasTray)
{
    QStringList lines;
    lines << QStringLiteral("Zanthe Vell " ZV_VERSION);
    lines << QSysInfo::prettyProductName() + QStringLiteral(", kernel ") + QSysInfo::kernelVersion() + QStringLiteral(", ")
            + QSysInfo::currentCpuArchitecture();
    lines << QStringLiteral("Desktop: ") + qEnvironmentVariable("XDG_CURRENT_DESKTOP", QStringLiteral("unknown"));
    lines << QStringLiteral("Display: ") + QGuiApplication::platformName() + QStringLiteral(", Qt ") + QLatin1StringView(qVersion());
    for (auto const* screen : QGuiApplication::screens())
        lines << QStringLiteral("Screen: %1×%2 at %3").arg(screen->geometry().width()).arg(screen->geometry().height()).arg(screen->devicePixelRatio());
    lines << (hasTray ? QStringLiteral("Status icons: shown by the panel") : QStringLiteral("Status icons: nothing here shows them"));
    return lines.join(QLatin1Char('\n')).toStdString();
}

} // namespace zv
