#include "platform/linux/overlay/X11PointerMonitor.h"

#include <xcb/xinput.h>

namespace zv {

namespace {

constexpr int kPause = 40; // milliseconds

enum class Listen { no, yes };

void selectRawMotion(X11Connection const& x, Listen listen)
{
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } const request {
        { XCB_INPUT_DEVICE_ALL_MASTER, 1 },
        listen == Listen::yes ? std::uint32_t { XCB_INPUT_XI_EVENT_MASK_RAW_MOTION } : 0,
    };
    xcb_input_xi_select_events(x.get(), x.root(), 1, &request.head);
    x.flush();
}

} // namespace

/// Reports motion, pauses, then reports once more: where the pointer came to rest.
class X11PointerMonitor::Watch : public PointerMonitor::Token {
public:
    Watch(X11Connection& x, std::uint8_t opcode, std::function<void()> moved)
        : m_x(x)
        , m_opcode(opcode)
        , m_moved(std::move(moved))
        , m_events(x.onEvent([this](auto const& event) { handle(event); }))
    {
        m_pause.setSingleShot(true);
        m_pause.setInterval(kPause);
        QObject::connect(&m_pause, &QTimer::timeout, [this] {
            m_isPaused = false;
            selectRawMotion(m_x, Listen::yes);
            report();
        });
        selectRawMotion(m_x, Listen::yes);
    }
    ~Watch() override { selectRawMotion(m_x, Listen::no); }

private:
    void handle(xcb_generic_event_t const& event)
    {
        if (m_isPaused || (event.response_type & 0x7f) != XCB_GE_GENERIC)
            return;
        auto const& generic = reinterpret_cast<xcb_ge_generic_event_t const&>(event);
        if (generic.extension != m_opcode || generic.event_type != XCB_INPUT_RAW_MOTION)
            return;
        m_isPaused = true;
        selectRawMotion(m_x, Listen::no);
        m_pause.start();
        report();
    }
    void report() const
    {
        auto const moved = m_moved;
        moved();
    }

    X11Connection& m_x;
    std::uint8_t m_opcode;
    std::function<void()> m_moved;
    QTimer m_pause;
    bool m_isPaused = false;
    X11Connection::Token m_events;
};

X11PointerMonitor::X11PointerMonitor(X11Connection& x, X11Screens const& screens)
    : m_x(x)
    , m_screens(screens)
{
    auto const* extension = xcb_get_extension_data(x.get(), &xcb_input_id);
    if (!extension || !extension->present)
        return;
    // Version 2.1 and later sends raw events during another program's pointer grab too.
    XReply<xcb_input_xi_query_version_reply_t> const version(xcb_input_xi_query_version_reply(x.get(), xcb_input_xi_query_version(x.get(), 2, 2), nullptr));
    if (version && version->major_version >= 2)
        m_opcode = extension->major_opcode;
}

std::unique_ptr<PointerMonitor::Token> X11PointerMonitor::watch(std::function<void()> moved)
{
    if (!m_opcode)
        return nullptr;
    return std::make_unique<Watch>(m_x, m_opcode, std::move(moved));
}

Point X11PointerMonitor::location() const
{
    XReply<xcb_query_pointer_reply_t> const reply(xcb_query_pointer_reply(m_x.get(), xcb_query_pointer(m_x.get(), m_x.root()), nullptr));
    return reply ? m_screens.space().toScreen(reply->root_x, reply->root_y) : Point {};
}

} // namespace zv
