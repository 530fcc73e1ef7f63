#pragma once

#include <xcb/xcb.h>
#include <xcb/xcbext.h>

#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

/// A private X server and other programs on it, for tests and measurements.
namespace zv::desktop {

/// An X server, started in the constructor, in the environment's DISPLAY while it lives.
class PrivateX {
public:
    PrivateX()
        : m_previousDisplay(std::getenv("DISPLAY") ? std::getenv("DISPLAY") : "")
    {
        int ends[2];
        if (pipe(ends) != 0)
            return;
        m_process = fork();
        if (m_process == 0) {
            close(ends[0]);
            auto const out = std::to_string(ends[1]);
            execlp("Xvfb", "Xvfb", "-displayfd", out.c_str(), "-screen", "0", "640x480x24", "-nolisten", "tcp", nullptr);
            _exit(127);
        }
        close(ends[1]);
        std::string number;
        for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';)
            number += c;
        close(ends[0]);
        m_isRunning = !number.empty();
        setenv("DISPLAY", (":" + number).c_str(), 1);
    }
    ~PrivateX()
    {
        setenv("DISPLAY", m_previousDisplay.c_str(), 1);
        kill(m_process, SIGTERM);
        waitpid(m_process, nullptr, 0);
    }
    PrivateX(PrivateX const&) = delete;
    PrivateX& operator=(PrivateX const&) = delete;

    [[nodiscard]] bool isRunning() const { return m_isRunning; }
    /// Runs a command line such as "setxkbmap de" on it; false when that failed.
    bool run(std::string const& command) const { return std::system((command + " > /dev/null 2>&1").c_str()) == 0; }

private:
    std::string m_previousDisplay;
    pid_t m_process = -1;
    bool m_isRunning = false;
};

/// Another program on the display, which also presses keys as the user.
class XClient {
public:
    XClient()
        : m_connection(xcb_connect(nullptr, nullptr))
        , m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root)
    {
    }
    ~XClient() { xcb_disconnect(m_connection); }
    XClient(XClient const&) = delete;
    XClient& operator=(XClient const&) = delete;

    [[nodiscard]] xcb_connection_t* xcb() const { return m_connection; }
    [[nodiscard]] xcb_window_t root() const { return m_root; }

    [[nodiscard]] xcb_atom_t atom(char const* name) const
    {
        auto* const reply = xcb_intern_atom_reply(m_connection, xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name), nullptr);
        auto const found = reply ? reply->atom : xcb_atom_t { XCB_ATOM_NONE };
        std::free(reply);
        return found;
    }

    /// Grabs the combination; false when another client holds exactly this.
    bool grab(std::uint8_t keycode, std::uint16_t modifiers) const
    {
        auto const cookie = xcb_grab_key_checked(m_connection, 0, m_root, modifiers, keycode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        std::unique_ptr<xcb_generic_error_t, decltype(&std::free)> const error(xcb_request_check(m_connection, cookie), &std::free);
        return !error;
    }
    void ungrab(std::uint8_t keycode, std::uint16_t modifiers) const
    {
        xcb_ungrab_key(m_connection, keycode, m_root, modifiers);
        sync();
    }
    /// Grabs the keyboard as an open menu does.
    void grabKeyboard() const
    {
        auto const cookie = xcb_grab_keyboard(m_connection, 1, m_root, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        std::free(xcb_grab_keyboard_reply(m_connection, cookie, nullptr));
    }
    void ungrabKeyboard() const
    {
        xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
        sync();
    }

    void press(std::uint8_t keycode) const { fakeKey(XCB_KEY_PRESS, keycode); }
    void release(std::uint8_t keycode) const { fakeKey(XCB_KEY_RELEASE, keycode); }
    void tap(std::uint8_t keycode) const
    {
        press(keycode);
        release(keycode);
    }
    void sync() const { std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr)); }

private:
    /// Sends a raw key code, past every layout: XTEST, FakeInput.
    void fakeKey(std::uint8_t type, std::uint8_t keycode) const
    {
        static xcb_extension_t extension { "XTEST", 0 };
        struct Request {
            std::uint8_t majorOpcode, minorOpcode;
            std::uint16_t length;
            std::uint8_t type, detail, unused1[2];
            std::uint32_t time, root;
            std::uint8_t unused2[8];
            std::int16_t rootX, rootY;
            std::uint8_t unused3[7], deviceID;
        } request {};
        static_assert(sizeof(Request) == 36);
        request.type = type;
        request.detail = keycode;
        iovec parts[3] {};
        parts[2] = { &request, sizeof request };
        xcb_protocol_request_t const protocol { 1, &extension, 2, 1 };
        xcb_send_request(m_connection, 0, parts + 2, &protocol);
        sync();
    }

    xcb_connection_t* m_connection;
    xcb_window_t m_root;
};

} // namespace zv::desktop
