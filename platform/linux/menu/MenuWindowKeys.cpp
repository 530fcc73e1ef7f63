#include "platform/linux/menu/MenuWindow.h"

#include "platform/linux/menu/EntryAction.h"
#include "platform/linux/menu/ShortcutText.h"

#include <QKeyEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <QWidgetAction>

#include <utility>

/// What keys do in an open menu: they move, filter by what is typed, and choose.
namespace zv {

void MenuWindow::keyPressEvent(QKeyEvent* event)
{
    if (choseByShortcut(*event) || typed(*event) || movedByKey(event->key()))
        return;
    QScopedValueRollback const handling(m_handlesKey, true);
    QMenu::keyPressEvent(event);
}

bool MenuWindow::typed(QKeyEvent const& event)
{
    bool const wasEmpty = m_filter.isEmpty();
    auto const text = event.text();
    if (event.key() == Qt::Key_Escape)
        m_filter.clear();
    else if (event.key() == Qt::Key_Backspace)
        m_filter.removeLast();
    else if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier) || text.isEmpty() || !text.at(0).isPrint())
        return false;
    else if (wasEmpty && text.at(0).isSpace())
        return false;
    else
        m_filter.append(text.toStdString());
    if (wasEmpty && m_filter.isEmpty())
        return false;
    applyFilter();
    return true;
}

bool MenuWindow::movedByKey(int key)
{
    int const page = std::max(1, height() / std::max(1, fontMetrics().height() * 2));
    switch (key) {
    case Qt::Key_Home:
        setActiveAction(nullptr);
        press(Qt::Key_Down);
        return true;
    case Qt::Key_End:
        setActiveAction(nullptr);
        press(Qt::Key_Up);
        return true;
    case Qt::Key_PageDown:
        press(Qt::Key_Down, page);
        return true;
    case Qt::Key_PageUp:
        press(Qt::Key_Up, page);
        return true;
    default:
        return false;
    }
}

/// As if the key were pressed that often, without going round at either end.
void MenuWindow::press(int key, int times)
{
    auto const all = actions();
    auto const* last = static_cast<QAction const*>(nullptr);
    for (auto const* action : all) {
        if (isSelectable(action) && (key == Qt::Key_Down || !last))
            last = action;
    }
    for (int i = 0; i < times && (times == 1 || activeAction() != last); ++i) {
        QKeyEvent step(QEvent::KeyPress, key, Qt::NoModifier);
        QMenu::keyPressEvent(&step);
    }
}

/// Key equivalents work while the menu is open, in it and in the groups below it that have
/// been built.
bool MenuWindow::choseByShortcut(QKeyEvent const& event)
{
    ShortcutKeys pressed;
    if (event.modifiers() & Qt::ControlModifier)
        pressed.modifiers.append(QStringLiteral("Ctrl"));
    if (event.modifiers() & Qt::AltModifier)
        pressed.modifiers.append(QStringLiteral("Alt"));
    if (event.modifiers() & Qt::ShiftModifier)
        pressed.modifiers.append(QStringLiteral("Shift"));
    if (event.modifiers() & Qt::MetaModifier)
        pressed.modifiers.append(QStringLiteral("Super"));
    auto const keyCode = event.keyCombination().key();
    bool const isFunctionKey = keyCode >= Qt::Key_F1 && keyCode <= Qt::Key_F15;
    if (!isFunctionKey && !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
        return false;
    pressed.key = QKeySequence(keyCode).toString(QKeySequence::PortableText);
    auto const keys = pressed.text();
    for (auto const* action : m_entryActions) {
        if (action->keys() != keys || !isSelectable(action) || action->menu())
            continue;
        auto const target = action->target();
        auto* top = root();
        top->close();
        if (target && top->onChosen)
            top->onChosen(target, Qt::NoModifier);
        return true;
    }
    return false;
}

void MenuWindow::applyFilter()
{
    auto const visible = m_filter.visibleEntries();
    {
        QuietChanges const quiet(*this);
        for (std::size_t i = 0; i < visible.size(); ++i)
            m_entryActions[i]->setVisible(visible[i]);
        showTyped();
    }
    setActiveAction(nullptr);
    layOutAgain();
    if (!m_filter.isEmpty())
        press(Qt::Key_Down);
}

/// A first line that says what was typed. The menu keeps its width, so that it does not
/// jump about under the eyes.
void MenuWindow::showTyped()
{
    if (!m_typedLine) {
        auto* line = new QWidgetAction(this);
        m_typedText = new QLabel(this);
        m_typedText->setTextFormat(Qt::PlainText);
        m_typedText->setContentsMargins(28, 3, 12, 3);
        line->setDefaultWidget(m_typedText);
        line->setEnabled(false);
        auto palette = m_typedText->palette();
        palette.setColor(QPalette::Disabled, QPalette::WindowText, palette.color(QPalette::Active, QPalette::Highlight));
        m_typedText->setPalette(palette);
        m_typedLine = line;
        insertAction(actions().value(0), m_typedLine);
        setMinimumWidth(width());
    }
    m_typedLine->setVisible(!m_filter.isEmpty());
    m_typedLine->setText(QString::fromStdString(m_filter.text()));
    m_typedText->setText(m_typedLine->text());
}

void MenuWindow::dropTypedLine()
{
    delete std::exchange(m_typedLine, nullptr);
    m_typedText = nullptr;
}

} // namespace zv
