#pragma once

#include <QCoreApplication>

#include <memory>

namespace zv {

/// The application object that commands need to listen to a bus or to an X server.
class CommandApplication {
public:
    CommandApplication()
    {
        if (!QCoreApplication::instance())
            m_application = std::make_unique<QCoreApplication>(m_count, m_arguments);
    }

private:
    int m_count = 1;
    char m_name[12] = "zanthe-vell";
    char* m_arguments[2] = { m_name, nullptr };
    std::unique_ptr<QCoreApplication> m_application;
};

} // namespace zv
