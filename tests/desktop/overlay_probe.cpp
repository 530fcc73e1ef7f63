// The overlay alone, to be driven from outside: commands on standard input, one a line;
// what happens is told on standard output. As "overlay_probe dock X Y WIDTH HEIGHT" it is
// one more panel instead.

#include "app/menubar/AppleMenuOverlayController.h"
#include "base/MainThread.h"
#include "platform/linux/SystemClock.h"
#include "platform/linux/qt/OverlayFrontEnd.h"
#include "platform/linux/qt/QtRunLoop.h"
#include "tests/desktop/DockWindow.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QApplication>
#include <QMenu>
#include <QScreen>
#include <QSocketNotifier>

#include <iostream>
#include <string>
#include <unistd.h>

using namespace zv;

namespace {

class Probe {
public:
    Probe()
        : m_controller(m_frontEnd->services(m_loop, m_clock), m_preferences, [this](Point point) { clicked(point); })
    {
        m_menu.addAction(QStringLiteral("An entry"), [] { say("chosen"); });
        QObject::connect(&m_menu, &QMenu::aboutToHide, [] { say("closed"); });
        QObject::connect(&m_input, &QSocketNotifier::activated, [this] { readCommands(); });
        say("ready");
    }

private:
    static void say(std::string const& line) { std::cout << line << std::endl; }

    void clicked(Point point)
    {
        say("click " + std::to_string(static_cast<int>(point.x)) + " " + std::to_string(static_cast<int>(point.y)));
        auto const primary = QGuiApplication::primaryScreen()->geometry();
        if (m_opensMenu)
            m_menu.popup(QPoint(primary.x() + static_cast<int>(point.x), primary.bottom() + 1 - static_cast<int>(point.y)));
    }

    void readCommands()
    {
        char bytes[256];
        auto const count = read(STDIN_FILENO, bytes, sizeof bytes);
        if (count <= 0)
            return QCoreApplication::quit();
        m_pending.append(bytes, static_cast<std::size_t>(count));
        for (auto end = m_pending.find('\n'); end != std::string::npos; end = m_pending.find('\n')) {
            perform(m_pending.substr(0, end));
            m_pending.erase(0, end + 1);
        }
    }

    void perform(std::string const& command)
    {
        if (command == "frames") {
            std::string line = "frames";
            for (auto const& frame : m_controller.targetFrames()) {
                for (double const value : { frame.x, frame.y, frame.width, frame.height })
                    line += " " + std::to_string(static_cast<int>(value));
            }
            say(line);
        } else if (command == "replace on" || command == "replace off") {
            m_preferences.setReplacesAppleMenu(command == "replace on");
        } else if (command == "logo on" || command == "logo off") {
            m_preferences.setDrawsRainbowAppleLogo(command == "logo on");
        } else if (command == "menu on" || command == "menu off") {
            m_opensMenu = command == "menu on";
        }
    }

    QtRunLoop m_loop;
    SystemClock m_clock;
    fakes::FakeUserDefaults m_defaults;
    Preferences m_preferences { m_defaults };
    QMenu m_menu;
    std::string m_pending;
    bool m_opensMenu = false;
    std::unique_ptr<OverlayFrontEnd> m_frontEnd = OverlayFrontEnd::make();
    AppleMenuOverlayController m_controller;
    QSocketNotifier m_input { STDIN_FILENO, QSocketNotifier::Read };
};

int runDock(QStringList const& geometry)
{
    desktop::DockWindow const dock(geometry[0].toInt(), geometry[1].toInt(), geometry[2].toInt(), geometry[3].toInt());
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setApplicationName(QStringLiteral("overlay_probe"));
    markMainThread();
    auto const arguments = QApplication::arguments();
    if (arguments.size() == 6 && arguments[1] == QLatin1String("dock"))
        return runDock(arguments.mid(2));
    Probe const probe;
    return QApplication::exec();
}
