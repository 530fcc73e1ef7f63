#include "platform/linux/looks/LookFollower.h"

#include "platform/linux/icons/IconTheme.h"
#include "platform/linux/menu/MenuStyle.h"
#include "platform/linux/x11/XReply.h"

#include <QApplication>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace zv {

namespace {

constexpr std::chrono::milliseconds changesTogether { 50 };

/// The toolkit's names for desktops, which sessions set by themselves.
bool isChoice(std::string const& theme)
{
    static constexpr std::string_view ofDesktops[] = { "", "generic", "gtk2", "gtk3", "kde", "lxqt", "xdgdesktopportal" };
    return std::ranges::find(ofDesktops, theme) == std::end(ofDesktops);
}

QPalette darkPalette()
{
    QColor const text(0xee, 0xee, 0xec);
    QPalette palette(
        text, QColor(0x35, 0x35, 0x35), QColor(0x50, 0x50, 0x50), QColor(0x1e, 0x1e, 0x1e), QColor(0x2a, 0x2a, 0x2a), text, QColor(0x24, 0x24, 0x24));
    palette.setColor(QPalette::Window, QColor(0x30, 0x30, 0x30));
    palette.setColor(QPalette::Highlight, QColor(0x35, 0x84, 0xe4));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x78, 0xae, 0xed));
    palette.setColor(QPalette::PlaceholderText, QColor(0xa6, 0xa6, 0xa4));
    palette.setColor(QPalette::ToolTipBase, QColor(0x1e, 0x1e, 0x1e));
    palette.setColor(QPalette::ToolTipText, text);
    for (auto const role : { QPalette::Text, QPalette::WindowText, QPalette::ButtonText })
        palette.setColor(QPalette::Disabled, role, QColor(0x8c, 0x8c, 0x8a));
    return palette;
}

/// Neither a part of the toolkit for this desktop nor the user has set colours.
bool hasStandardColors() { return QApplication::palette() == QApplication::style()->standardPalette(); }

} // namespace

LookFollower::LookFollower(LookSources sources, std::string const& chosenTheme)
    : m_sources(std::move(sources))
    , m_isChosen(isChoice(chosenTheme))
    , m_followsColors(!m_isChosen && hasStandardColors())
    , m_file(m_sources.settingsFile())
{
    m_soon.setSingleShot(true);
    m_soon.setInterval(changesTogether);
    connect(&m_soon, &QTimer::timeout, this, [this] { adopt(); });
    if (m_sources.settings.connection) {
        XReply<xcb_intern_atom_reply_t> const atom(
            xcb_intern_atom_reply(m_sources.settings.connection, xcb_intern_atom(m_sources.settings.connection, 0, 7, "MANAGER"), nullptr));
        m_managerMessage = atom ? atom->atom : xcb_atom_t { XCB_ATOM_NONE };
        qApp->installNativeEventFilter(this);
        watchPublisher();
    }
    watchSettings();
    adopt();
}

LookFollower::~LookFollower() { qApp->removeNativeEventFilter(this); }

void LookFollower::useBus(QDBusConnection const& bus)
{
    m_colorScheme = std::make_unique<ColorScheme>(bus, [this](std::optional<bool> isDark) {
        m_isDark = isDark.value_or(m_isDark);
        m_soon.start();
    });
}

/// Selects what the toolkit selects on the window, as both have one connection.
void LookFollower::watchPublisher()
{
    m_publisher = publisherOfSettings(m_sources.settings.connection);
    if (m_publisher == XCB_WINDOW_NONE)
        return;
    std::uint32_t const events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_sources.settings.connection, m_publisher, XCB_CW_EVENT_MASK, &events);
    xcb_flush(m_sources.settings.connection);
}

void LookFollower::watchSettings()
{
    if (m_file.descriptor() < 0)
        return;
    m_fileEvents = std::make_unique<QSocketNotifier>(m_file.descriptor(), QSocketNotifier::Read);
    connect(m_fileEvents.get(), &QSocketNotifier::activated, this, [this] {
        if (m_file.takeEvents())
            m_soon.start();
    });
}

bool LookFollower::nativeEventFilter(QByteArray const& type, void* event, qintptr*)
{
    if (type != "xcb_generic_event_t")
        return false;
    auto const kind = static_cast<xcb_generic_event_t*>(event)->response_type & 0x7F;
    if (kind == XCB_CLIENT_MESSAGE && static_cast<xcb_client_message_event_t*>(event)->type == m_managerMessage) {
        watchPublisher();
        m_soon.start();
    } else if (kind == XCB_PROPERTY_NOTIFY && static_cast<xcb_property_notify_event_t*>(event)->window == m_publisher) {
        m_soon.start();
    }
    return false;
}

void LookFollower::adopt()
{
    auto const look = m_isChosen ? DesktopLook {} : readDesktopLook(m_sources, m_isDark);
    if (look.font && *look.font != QApplication::font())
        QApplication::setFont(*look.font);
    if (m_followsColors || m_colorScheme)
        adoptColors(m_followsColors ? look.theme : std::nullopt);
    bool const isOnDark = QApplication::palette("QMenu").color(QPalette::Base).lightnessF() < 0.5F;
    adoptDesktopIconTheme(m_sources.settings, m_isChosen ? IconThemeOf::toolkit : IconThemeOf::desktop, isOnDark);
    if (onAdopted)
        onAdopted();
}

void LookFollower::adoptColors(std::optional<ThemeLook> const& theme) const
{
    auto const plain = m_isDark ? darkPalette() : QApplication::style()->standardPalette();
    auto const windows = theme ? theme->windows : plain;
    auto const menus = theme ? theme->menus : plain;
    QApplication::setPalette(windows);
    QApplication::setPalette(menus, "QMenu");
    QToolTip::setPalette(windows);
    if (auto* const style = qobject_cast<MenuStyle*>(QApplication::style()))
        style->setRows(theme ? theme->rows : std::nullopt);
}

} // namespace zv
