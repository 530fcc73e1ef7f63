#pragma once

#include "platform/desk/Alerts.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace zv {

/// An alert on the screen: its picture, its message in bold, the details below, the buttons in
/// their order. A long text scrolls.
class AlertDialog : public QDialog {
    Q_OBJECT

public:
    explicit AlertDialog(Alert const& alert);
    [[nodiscard]] std::size_t chosen() const { return m_chosen; }

protected:
    void reject() override;
    void showEvent(QShowEvent* event) override;

private:
    void addTexts(QVBoxLayout& column, Alert const& alert);
    void addButtons(QVBoxLayout& column, Alert const& alert);
    [[nodiscard]] QWidget* informativeWidget(QString const& text);

    std::size_t m_escapeButton;
    std::size_t m_chosen;
};

} // namespace zv
