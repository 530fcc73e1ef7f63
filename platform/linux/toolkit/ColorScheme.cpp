#include "platform/linux/toolkit/ColorScheme.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace zv {

namespace {

// https://flatpak.github.io/xdg-desktop-portal/docs/doc-org.freedesktop.portal.Settings.html, "org.freedesktop.appearance"
constexpr uint prefersDark = 1;

QString portal() { return QStringLiteral("org.freedesktop.portal.Desktop"); }
QString portalPath() { return QStringLiteral("/org/freedesktop/portal/desktop"); }
QString settings() { return QStringLiteral("org.freedesktop.portal.Settings"); }
QString appearance() { return QStringLiteral("org.freedesktop.appearance"); }
QString colorScheme() { return QStringLiteral("color-scheme"); }

/// Removes nested variants, which older portals wrap once more.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

bool isDark(QVariant const& preference) { return unwrapped(preference).toUInt() == prefersDark; }

} // namespace

ColorScheme::ColorScheme(QDBusConnection bus, Changed changed)
    : m_changed(std::move(changed))
    , m_changes(bus, portal(), portalPath(), settings(), QStringLiteral("SettingChanged"), [this](auto const& change) { heard(change); })
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
            m_changed(isDark(reply.value().variant()));
    });
}

void ColorScheme::heard(QDBusMessage const& change)
{
    auto const arguments = change.arguments();
    if (arguments.size() != 3)
        return;
    bool const isScheme = arguments[0].toString() == appearance() && arguments[1].toString() == colorScheme();
    m_changed(isScheme ? std::optional(isDark(arguments[2])) : std::nullopt);
}

} // namespace zv
