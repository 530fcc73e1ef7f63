// bare_start: the least program of this toolkit to be found on the session bus; bench/start
// compares with it. Like the program it leaves the toolkit's part for GTK alone, which some desktops have installed.

#include <QApplication>
#include <QDBusConnection>

int main(int argc, char** argv)
{
    QGuiApplication::setDesktopSettingsAware(false);
    QApplication application(argc, argv);
    QDBusConnection::sessionBus().registerService(QStringLiteral("org.zanthevell.BareStart"));
    return QApplication::exec();
}
