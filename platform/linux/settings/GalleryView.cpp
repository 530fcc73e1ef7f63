#include "platform/linux/settings/GalleryView.h"

#include "platform/linux/icons/LaurelIcon.h"
#include "platform/linux/icons/MenuImages.h"
#include "platform/linux/settings/ShownText.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace zv {

namespace {

constexpr QSize usualSize { 600, 520 };
constexpr QSize roomForFrame { 20, 60 };
constexpr int listAir = 40;

QLabel* wrapped(QString const& sentence)
{
    auto* label = new QLabel(sentence);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

GalleryView::GalleryView(SettingsModels& models, QWidget* parent)
    : QDialog(parent)
    , m_models(models)
    , m_menus(models.gallery().menus())
    , m_list(new QListWidget)
    , m_description(wrapped({}))
    , m_preview(new QTreeWidget)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(text(StartGallery::texts().window));
    setWindowIcon(laurelApplicationIcon());
    build();
    resize(usualSize.boundedTo(screen()->availableSize() - roomForFrame));
    m_list->setCurrentRow(0);
    m_list->setFocus();
}

void GalleryView::build()
{
    auto const& texts = StartGallery::texts();
    for (auto const& menu : m_menus)
        m_list->addItem(text(menu.title));
    m_list->setAccessibleName(text(texts.list));
    m_list->setFixedWidth(m_list->sizeHintForColumn(0) + listAir);
    m_preview->setAccessibleName(text(texts.preview));
    m_preview->setHeaderHidden(true);
    m_preview->setIconSize({ menuIconSize, menuIconSize });
    m_preview->setSelectionMode(QAbstractItemView::NoSelection);
    auto* shown = new QVBoxLayout;
    shown->addWidget(m_description);
    shown->addWidget(m_preview, 1);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(12);
    columns->addWidget(m_list);
    columns->addLayout(shown, 1);
    auto* buttons = new QDialogButtonBox;
    m_take = buttons->addButton(text(texts.take), QDialogButtonBox::AcceptRole);
    m_take->setDefault(true);
    m_take->setEnabled(m_models.gallery().canTake());
    buttons->addButton(text(texts.cancel), QDialogButtonBox::RejectRole);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(14, 14, 14, 14);
    column->setSpacing(12);
    column->addLayout(columns, 1);
    column->addWidget(wrapped(text(m_models.gallery().note())));
    column->addWidget(buttons);
    connect(m_list, &QListWidget::currentRowChanged, this, [this] { showChosen(); });
    connect(m_list, &QListWidget::itemDoubleClicked, this, [this] { take(); });
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { take(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void GalleryView::showChosen()
{
    auto const& menu = m_menus[static_cast<std::size_t>(std::max(m_list->currentRow(), 0))];
    m_description->setText(text(menu.description));
    m_preview->clear();
    addRows(menu.items, m_preview->invisibleRootItem());
    m_preview->expandAll();
}

void GalleryView::addRows(std::vector<MenuItem> const& items, QTreeWidgetItem* parent)
{
    for (auto const& item : items) {
        auto const row = m_models.outline().row(item);
        auto* line = new QTreeWidgetItem(parent, { text(row.shownTitle()) });
        line->setData(0, Qt::AccessibleTextRole, text(row.spokenTitle()));
        if (row.isFaint())
            line->setForeground(0, palette().color(QPalette::PlaceholderText));
        else
            line->setIcon(0, iconOf(item));
        addRows(item.children, line);
    }
}

QIcon GalleryView::iconOf(MenuItem const& item) const
{
    auto const image = m_models.iconOf(item);
    return image ? menuIconOf(image) : blankMenuIcon();
}

void GalleryView::take()
{
    if (!m_models.gallery().canTake())
        return;
    auto const chosen = m_menus[static_cast<std::size_t>(std::max(m_list->currentRow(), 0))];
    accept();
    m_models.gallery().take(chosen);
}

} // namespace zv
