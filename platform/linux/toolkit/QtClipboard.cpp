#include "platform/linux/toolkit/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace zv {

void QtClipboard::setText(std::string const& text) { QGuiApplication::clipboard()->setText(QString::fromStdString(text)); }

} // namespace zv
