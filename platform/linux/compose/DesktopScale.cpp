#include "platform/linux/compose/DesktopScale.h"

#include "platform/linux/icons/IconTheme.h"
#include "platform/linux/looks/DesktopLook.h"

#include <QByteArray>

#include <xcb/xcb.h>

namespace zv {

namespace {

constexpr auto scaleVariable = "QT_SCALE_FACTOR";

bool isChosenByUser(Environment const& environment) { return environment.contains(scaleVariable) || environment.contains("QT_SCREEN_SCALE_FACTORS"); }

std::string settingsOfThisDisplay()
{
    auto* const connection = xcb_connect(nullptr, nullptr);
    auto settings = xcb_connection_has_error(connection) == 0 ? publishedSettings(connection) : std::string();
    xcb_disconnect(connection);
    return settings;
}

} // namespace

DesktopScale::DesktopScale(Environment const& environment)
{
    auto const scale = isChosenByUser(environment) ? 1 : scaleBesideDots(settingsOfThisDisplay());
    m_isSet = scale > 1 && qputenv(scaleVariable, QByteArray::number(scale));
}

DesktopScale::~DesktopScale()
{
    if (m_isSet)
        qunsetenv(scaleVariable);
}

} // namespace zv
