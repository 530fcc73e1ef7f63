// bare_start: the least program of this toolkit to be found on the session bus; bench/start
// compares with it.

#include <QApplication>
#include <QDBusConnection>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QDBusConnection::sessionBus().registerService(QStringLiteral("org.zanthevell.BareStart"));
    return QApplication::exec();
}
