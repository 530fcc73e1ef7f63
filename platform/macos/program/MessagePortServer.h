#pragma once

#import <CoreFoundation/CoreFoundation.h>

#include <functional>
#include <string>

namespace zv {

/// The message port that receives commands. A login session has one: the process that holds
/// it is the running program. Main thread only.
class MessagePortServer {
public:
    using Answer = std::function<std::string(std::string const& request)>;

    explicit MessagePortServer(Answer answer)
        : m_answer(std::move(answer))
    {
    }
    ~MessagePortServer() { close(); }
    MessagePortServer(MessagePortServer const&) = delete;
    MessagePortServer& operator=(MessagePortServer const&) = delete;

    /// Answers requests from here on, while menus and alerts are open, too. False when another
    /// process holds the port.
    [[nodiscard]] bool open();
    /// Lets another process have the port.
    void close();

private:
    static CFDataRef called(CFMessagePortRef port, SInt32 message, CFDataRef request, void* owner);

    Answer m_answer;
    CFMessagePortRef m_port = nullptr;
};

} // namespace zv
