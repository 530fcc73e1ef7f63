#include "platform/linux/settings/QtSettingsWindow.h"

#include "app/settings/SettingsTexts.h"
#include "platform/linux/icons/LaurelIcon.h"
#include "platform/linux/settings/AboutView.h"
#include "platform/linux/settings/FaintText.h"
#include "platform/linux/settings/GalleryView.h"
#include "platform/linux/settings/MenuEditorView.h"
#include "platform/linux/settings/RecorderField.h"
#include "platform/linux/settings/SettingsPageView.h"
#include "platform/linux/settings/ShownText.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLibraryInfo>
#include <QLocale>
#include <QScreen>
#include <QShortcut>
#include <QTabWidget>
#include <QTranslator>
#include <QVBoxLayout>

namespace zv {

namespace {

constexpr QSize usualSize { 960, 680 };
constexpr QSize smallestSize { 600, 380 };

/// The toolkit's own words: a text field's menu, the buttons of panels. Only the settings have such.
void loadToolkitTexts()
{
    static QTranslator translator;
    if (translator.isEmpty()
        && translator.load(QLocale::system(), QStringLiteral("qtbase"), QStringLiteral("_"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&translator);
}

} // namespace

class QtSettingsWindow::Window : public QWidget {
public:
    Window(SettingsModels& models, KeyLookup lookUp)
        : m_models(models)
        , m_tabs(new QTabWidget)
        , m_general(new SettingsPageView([&models, lookUp] { return new RecorderField(models, lookUp); }))
    {
        setWindowTitle(text(settingsTexts::windowTitle));
        setFaintText();
        setWindowIcon(laurelApplicationIcon());
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(8, 8, 8, 8);
        column->addWidget(m_tabs);
        m_tabs->addTab(m_general, text(settingsTexts::generalTab));
        m_menu = new MenuEditorView(models, std::move(lookUp));
        m_tabs->addTab(m_menu, text(settingsTexts::menuTab));
        addActions(m_menu->actions()); // undo and redo, as other tabs replace menus, too
        m_tabs->addTab(new AboutView(models), text(settingsTexts::aboutTab));
        m_tabs->setAccessibleName(text(settingsTexts::tabs));
        bringPlaceBack();
        m_models.general().onChanged = [this] { refresh(); };
        QObject::connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, [this] { close(); });
        QObject::connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] { close(); });
        QObject::connect(m_tabs, &QTabWidget::currentChanged, this, [this](int tab) {
            m_models.place().keepTab(tab);
            refresh(); // new backups may exist
        });
        refresh();
    }
    ~Window() override
    {
        keepSize();
        m_models.general().onChanged = nullptr;
    }

    void showItem(Uuid const& item)
    {
        m_tabs->setCurrentWidget(m_menu);
        m_menu->showItem(item);
    }

    /// Shows the current settings, and follows them.
    void refresh()
    {
        std::vector<SettingsSection> sections;
        m_observation = withObservationTracking([&] { sections = m_models.general().sections(); },
            [this] {
                QMetaObject::invokeMethod(
                    this, [this] { refresh(); }, Qt::QueuedConnection);
            });
        m_general->show(sections);
    }

protected:
    void closeEvent(QCloseEvent* event) override
    {
        keepSize();
        QWidget::closeEvent(event);
    }
    void changeEvent(QEvent* event) override
    {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::PaletteChange)
            setFaintText();
        // The login item may have changed in the desktop's own settings.
        if (event->type() == QEvent::ActivationChange && isActiveWindow())
            refresh();
    }

private:
    /// The faint text of all the window's notes.
    void setFaintText()
    {
        auto const color = faintText(QApplication::palette());
        if (palette().color(QPalette::PlaceholderText) == color)
            return; // setting it is a change, too
        QPalette faint;
        faint.setColor(QPalette::PlaceholderText, color);
        setPalette(faint);
    }

    /// Stores the size to which a maximized window returns.
    void keepSize()
    {
        auto const size = isMaximized() || isFullScreen() ? normalGeometry().size() : this->size();
        if (!testAttribute(Qt::WA_WState_Created) || size.isEmpty())
            return;
        m_models.place().keepSize({ size.width(), size.height() });
    }

    void bringPlaceBack()
    {
        auto const kept = m_models.place().size({ smallestSize.width(), smallestSize.height() });
        setMinimumSize(smallestSize);
        auto const room = screen()->availableSize();
        resize(kept ? QSize(static_cast<int>(kept->width), static_cast<int>(kept->height)).boundedTo(room) : usualSize.boundedTo(room));
        m_tabs->setCurrentIndex(static_cast<int>(m_models.place().tab(m_tabs->count())));
    }

    SettingsModels& m_models;
    QTabWidget* m_tabs;
    SettingsPageView* m_general;
    MenuEditorView* m_menu = nullptr;
    Observation m_observation;
};

QtSettingsWindow::QtSettingsWindow(std::function<SettingsModels&()> models, KeyLookup lookUp)
    : m_models(std::move(models))
    , m_lookUp(std::move(lookUp))
{
}

QtSettingsWindow::~QtSettingsWindow() = default;

void QtSettingsWindow::openOrRaise()
{
    if (!m_window) {
        loadToolkitTexts();
        m_window = std::make_unique<Window>(m_models(), m_lookUp);
    }
    m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void QtSettingsWindow::openAt(Uuid const& item)
{
    openOrRaise();
    m_window->showItem(item);
}

void QtSettingsWindow::openGallery()
{
    if (!m_gallery)
        m_gallery = new GalleryView(m_models(), m_window.get());
    m_gallery->show();
    m_gallery->raise();
    m_gallery->activateWindow();
}

void QtSettingsWindow::close()
{
    delete m_gallery.data();
    m_window.reset();
}

} // namespace zv
