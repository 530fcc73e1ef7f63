#include "platform/linux/windows/AlertDialog.h"
#include "platform/linux/windows/QtAlerts.h"
#include "tests/linux/toolkit/TestApplication.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>

#include <gtest/gtest.h>

namespace zv {
namespace {

struct AlertDialogTest : testing::Test {
    AlertDialogTest() { ensureApplication(); }
};

/// Runs the alert and presses a key as soon as it is there.
std::size_t runAndPress(Alert const& alert, int key)
{
    QTimer::singleShot(0, [key] {
        auto* const target = QApplication::activeModalWidget();
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(target, &press);
    });
    QtAlerts alerts;
    return alerts.run(alert);
}

TEST_F(AlertDialogTest, ReturnPressesTheFirstButtonAndEscapeTheOneThatIsMeant)
{
    struct Row {
        std::vector<std::string> buttons;
        std::size_t escape;
        int key;
        std::size_t chosen;
    };
    Row const rows[] = {
        { { "OK" }, 0, Qt::Key_Escape, 0 },
        { { "OK" }, 0, Qt::Key_Return, 0 },
        { { "Restart", "Cancel" }, 1, Qt::Key_Return, 0 },
        { { "Restart", "Cancel" }, 1, Qt::Key_Escape, 1 },
        { { "Move", "Do Not Move", "Quit" }, 1, Qt::Key_Escape, 1 },
        { { "Keep", "Drop" }, 0, Qt::Key_Escape, 0 },
    };
    for (auto const& row : rows)
        EXPECT_EQ(runAndPress({ AlertStyle::warning, "M", "T", row.buttons, row.escape }, row.key), row.chosen) << row.buttons.front();
}

TEST_F(AlertDialogTest, ShowsItsButtonsInOrderWithTheirOwnText)
{
    AlertDialog dialog({ AlertStyle::informational, "M", "T", { "R&D", "Cancel" }, 1 });
    dialog.show();
    auto const buttons = dialog.findChildren<QPushButton*>();
    ASSERT_EQ(buttons.size(), 2);
    EXPECT_EQ(buttons[0]->text(), QStringLiteral("R&&D")) << "shown as R&D, and no mnemonic";
    EXPECT_LT(buttons[0]->x(), buttons[1]->x());
    EXPECT_TRUE(buttons[0]->isDefault());
    buttons[1]->click();
    EXPECT_EQ(dialog.chosen(), 1u);
}

TEST_F(AlertDialogTest, TellsAssistiveToolsWhatItSays)
{
    AlertDialog dialog({ AlertStyle::warning, "“<b>x</b>” could not be completed.", "sendFailed(-600)" });
    auto* const accessible = QAccessible::queryAccessibleInterface(&dialog);
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::AlertMessage);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("“<b>x</b>” could not be completed."));
    EXPECT_EQ(accessible->text(QAccessible::Description), QStringLiteral("sendFailed(-600)"));
}

TEST_F(AlertDialogTest, AThousandLinesScrollInsteadOfGrowingOffTheScreen)
{
    std::string lines;
    for (int i = 0; i < 1000; ++i)
        lines += "“Report.pdf” — Permission denied\n";
    AlertDialog dialog({ AlertStyle::warning, "M", lines });
    dialog.show();
    EXPECT_EQ(dialog.findChildren<QScrollArea*>().size(), 1);
    EXPECT_LT(dialog.height(), 500);
}

} // namespace
} // namespace zv
