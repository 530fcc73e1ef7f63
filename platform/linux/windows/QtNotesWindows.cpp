#include "platform/linux/windows/QtNotesWindows.h"

#include "platform/linux/text/RtfReader.h"

#include <QDesktopServices>
#include <QGuiApplication>
#include <QIcon>
#include <QPalette>
#include <QPointer>
#include <QScreen>
#include <QShortcut>
#include <QTextBlockFormat>
#include <QTextBrowser>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QVBoxLayout>
#include <QWidget>

namespace zv {

namespace {

/// Adapts a document's colour, made for white paper. On a dark background it keeps its hue and
/// takes the lightness of equal contrast.
QColor adapted(RtfDocument::Color const& color, QPalette const& palette)
{
    QColor const given(color.red, color.green, color.blue);
    bool const isDark = palette.color(QPalette::Base).lightnessF() < 0.5F;
    if (given == QColor(Qt::black))
        return palette.color(QPalette::Text);
    return isDark ? QColor::fromHslF(given.hslHueF() < 0 ? 0 : given.hslHueF(), given.hslSaturationF(), 1.0F - 0.7F * given.lightnessF()) : given;
}

QTextCharFormat characterFormat(RtfDocument::Run const& run, QPalette const& palette)
{
    QTextCharFormat format;
    format.setFontPointSize(run.size * 0.75); // the text counts 72 points an inch, the screen 96
    format.setFontWeight(run.bold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(run.italic);
    format.setFontUnderline(run.underline || !run.link.empty());
    format.setForeground(run.color ? adapted(*run.color, palette) : palette.color(QPalette::Text));
    if (!run.link.empty()) {
        format.setAnchor(true);
        format.setAnchorHref(QString::fromStdString(run.link));
        format.setForeground(palette.color(QPalette::Link));
    }
    return format;
}

QTextBlockFormat blockFormat(RtfDocument::Paragraph const& paragraph)
{
    static constexpr Qt::AlignmentFlag alignments[] = { Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight };
    QTextBlockFormat format;
    format.setAlignment(alignments[static_cast<int>(paragraph.alignment)]);
    format.setTopMargin(paragraph.spaceBefore);
    format.setBottomMargin(paragraph.spaceAfter);
    format.setLeftMargin(paragraph.leftIndent);
    format.setTextIndent(paragraph.firstLineIndent);
    return format;
}

class QtRichText : public RichText {
public:
    explicit QtRichText(RtfDocument document)
        : m_document(std::move(document))
    {
    }

    double height(double width) const override
    {
        QTextDocument text;
        write(text);
        text.setTextWidth(width);
        return text.size().height();
    }

    void write(QTextDocument& text) const
    {
        auto const palette = QGuiApplication::palette();
        text.setDocumentMargin(0);
        QTextCursor cursor(&text);
        bool isFirst = true;
        for (auto const& paragraph : m_document.paragraphs) {
            if (isFirst)
                cursor.setBlockFormat(blockFormat(paragraph));
            else
                cursor.insertBlock(blockFormat(paragraph));
            isFirst = false;
            for (auto const& run : paragraph.runs)
                cursor.insertText(QString::fromStdString(run.text).replace(QLatin1Char('\n'), QChar::LineSeparator), characterFormat(run, palette));
        }
    }

private:
    RtfDocument m_document;
};

/// Shows a text, and formats it again when the desktop changes between light and dark.
class NotesView : public QTextBrowser {
public:
    NotesView(std::shared_ptr<RichText> const& text, NotesWindowLayout const& layout)
        : m_text(std::static_pointer_cast<QtRichText>(text))
        , m_inset(static_cast<int>(layout.textInset))
    {
        setFrameShape(QFrame::NoFrame);
        setOpenExternalLinks(true);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setAccessibleName(QString::fromStdString(layout.textName));
        rewrite();
    }

protected:
    void changeEvent(QEvent* event) override
    {
        QTextBrowser::changeEvent(event);
        if (event->type() == QEvent::PaletteChange)
            rewrite();
    }

private:
    void rewrite()
    {
        document()->clear();
        if (m_text)
            m_text->write(*document());
        document()->setDocumentMargin(m_inset); // the margin scrolls with the text, so that the scroll bar reaches the window's edges
        moveCursor(QTextCursor::Start);
    }

    std::shared_ptr<QtRichText> m_text;
    int m_inset;
};

class QtNotesWindow : public NotesWindow {
public:
    QtNotesWindow(NotesWindowLayout const& layout, std::shared_ptr<RichText> const& text)
    {
        m_window.setWindowTitle(QString::fromStdString(layout.title));
        m_window.setAutoFillBackground(true);
        m_window.setBackgroundRole(QPalette::Base);
        auto* box = new QVBoxLayout(&m_window);
        box->setContentsMargins(0, 0, 0, 0);
        box->addWidget(new NotesView(text, layout));
        QObject::connect(new QShortcut(Qt::Key_Escape, &m_window), &QShortcut::activated, &m_window, &QWidget::close);
        QObject::connect(new QShortcut(QKeySequence::Close, &m_window), &QShortcut::activated, &m_window, &QWidget::close);
        m_window.setMinimumSize(static_cast<int>(layout.minimumWidth), static_cast<int>(layout.minimumHeight));
        m_window.resize(static_cast<int>(layout.width), static_cast<int>(layout.height));
        if (auto const* screen = QGuiApplication::primaryScreen())
            m_window.move(screen->availableGeometry().center() - m_window.rect().center());
    }

    void bringToFront() override
    {
        m_window.show();
        m_window.raise();
        m_window.activateWindow();
    }

private:
    QWidget m_window;
};

} // namespace

std::shared_ptr<RichText> QtNotesWindows::read(std::vector<std::byte> const& rtf)
{
    auto document = readRtf(rtf);
    return document ? std::make_shared<QtRichText>(std::move(*document)) : nullptr;
}

std::unique_ptr<NotesWindow> QtNotesWindows::make(NotesWindowLayout const& layout, std::shared_ptr<RichText> const& text)
{
    return std::make_unique<QtNotesWindow>(layout, text);
}

} // namespace zv
