// bare_start: the least that a program of this toolkit does to be found on the session bus;
// what bench/start compares with.

#include <QApplication>
#include <QDBusConnection>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QDBusConnection::sessionBus().registerService(QStringLiteral("org.zanthevell.BareStart"));
    return QApplication::exec();
}
