#include "platform/linux/toolkit/ColorScheme.h"

#include <QApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QPalette>
#include <QStyle>
#include <QToolTip>

namespace zv {

namespace {

// https://flatpak.github.io/xdg-desktop-portal/docs/doc-org.freedesktop.portal.Settings.html, "org.freedesktop.appearance"
constexpr uint prefersDark = 1;

QString portal() { return QStringLiteral("org.freedesktop.portal.Desktop"); }
QString portalPath() { return QStringLiteral("/org/freedesktop/portal/desktop"); }
QString settings() { return QStringLiteral("org.freedesktop.portal.Settings"); }
QString appearance() { return QStringLiteral("org.freedesktop.appearance"); }
QString colorScheme() { return QStringLiteral("color-scheme"); }

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

/// Removes nested variants, which older portals wrap once more.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

ColorScheme::ColorScheme(QDBusConnection bus)
    : m_changes(bus, portal(), portalPath(), settings(), QStringLiteral("SettingChanged"), [this](auto const& change) { heard(change); })
{
    if (!bus.isConnected())
        return;
    auto call = QDBusMessage::createMethodCall(portal(), portalPath(), settings(), QStringLiteral("Read"));
    call << appearance() << colorScheme();
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        QDBusPendingReply<QDBusVariant> const reply = *finished;
        if (!reply.isError())
            apply(reply.value().variant());
    });
}

void ColorScheme::heard(QDBusMessage const& change)
{
    auto const arguments = change.arguments();
    if (arguments.size() == 3 && arguments[0].toString() == appearance() && arguments[1].toString() == colorScheme())
        apply(arguments[2]);
}

void ColorScheme::apply(QVariant const& preference)
{
    bool const isDark = unwrapped(preference).toUInt() == prefersDark;
    QApplication::setPalette(isDark ? darkPalette() : QApplication::style()->standardPalette());
    QToolTip::setPalette(QApplication::palette());
}

} // namespace zv
