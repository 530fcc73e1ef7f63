#pragma once

#import <CoreFoundation/CoreFoundation.h>

#include <functional>
#include <string>

namespace zv {

/// The door at which commands knock. There is one in each login session: whoever has it is
/// the running program. Main thread only.
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

    /// Requests are answered from here on, while menus and alerts are open, too. False when
    /// another process has the door.
    [[nodiscard]] bool open();
    /// Another process may have it now.
    void close();

private:
    static CFDataRef called(CFMessagePortRef port, SInt32 message, CFDataRef request, void* owner);

    Answer m_answer;
    CFMessagePortRef m_port = nullptr;
};

} // namespace zv
