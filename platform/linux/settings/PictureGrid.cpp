#include "platform/linux/settings/PictureGrid.h"

#include "platform/linux/icons/MenuImages.h"
#include "platform/linux/settings/EmptyText.h"
#include "platform/linux/settings/ShownText.h"

#include <QAbstractListModel>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QHash>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QVBoxLayout>

namespace zv {

namespace {

constexpr int pictureSize = 32;
constexpr int cellSize = 46;
constexpr QSize usualSize { 560, 460 };
constexpr int mostAwaited = 400; // more than any window shows at once
constexpr qint64 sliceOfTime = 8; // milliseconds, so that typing and scrolling stay smooth

/// Draws a picture in the middle of its cell, and the whole cell as chosen.
class CellDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(QStyleOptionViewItem const& /*option*/, QModelIndex const& /*index*/) const override { return { cellSize, cellSize }; }
    void paint(QPainter* painter, QStyleOptionViewItem const& option, QModelIndex const& index) const override
    {
        QStyleOptionViewItem cell(option);
        cell.showDecorationSelected = true;
        cell.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &cell, painter, cell.widget);
        QRect picture(0, 0, pictureSize, pictureSize);
        picture.moveCenter(cell.rect.center());
        painter->drawPixmap(picture, index.data(Qt::DecorationRole).value<QPixmap>());
        bool const isFocused = cell.state.testFlag(QStyle::State_HasFocus);
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(cell);
        if (isFocused)
            cell.widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, cell.widget);
    }
};

/// Says so where nothing is found.
class GridView : public QListView {
public:
    explicit GridView(PictureChooser const& pictures)
        : m_pictures(pictures)
    {
        setViewMode(QListView::IconMode);
        setMovement(QListView::Static);
        setResizeMode(QListView::Adjust);
        setUniformItemSizes(true);
        setGridSize({ cellSize, cellSize });
        setSelectionMode(QAbstractItemView::SingleSelection);
        setItemDelegate(new CellDelegate(this));
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QListView::paintEvent(event);
        if (model()->rowCount() == 0)
            paintEmptyText(*this, m_pictures.emptyText());
    }

private:
    PictureChooser const& m_pictures;
};

} // namespace

/// The icons as a list. Each is drawn once it comes into sight, in slices of time, the last asked for first.
class PictureGrid::Icons : public QAbstractListModel {
public:
    Icons(PictureChooser& pictures, PictureGrid* grid)
        : QAbstractListModel(grid)
        , m_pictures(pictures)
        , m_grid(*grid)
        , m_blank(pictureSize, pictureSize)
    {
        m_blank.fill(Qt::transparent);
        m_slice.setSingleShot(true);
        connect(&m_slice, &QTimer::timeout, this, [this] { drawSome(); });
    }

    void setNames(std::vector<std::string const*> const& names)
    {
        beginResetModel();
        m_names.clear();
        for (auto const* name : names)
            m_names.push_back(zv::text(*name));
        m_awaited.clear();
        endResetModel();
    }
    [[nodiscard]] int rowOf(QString const& name) const { return static_cast<int>(m_names.indexOf(name)); }
    [[nodiscard]] QString nameAt(QModelIndex const& index) const { return m_names.value(index.row()); }

    [[nodiscard]] int rowCount(QModelIndex const& parent) const override { return parent.isValid() ? 0 : static_cast<int>(m_names.size()); }
    [[nodiscard]] QVariant data(QModelIndex const& index, int role) const override
    {
        auto const name = nameAt(index);
        switch (role) {
        case Qt::DecorationRole:
            return picture(index.row(), name);
        case Qt::ToolTipRole:
            return name;
        case Qt::AccessibleTextRole:
            return zv::text(PictureChooser::spoken(name.toStdString()));
        default:
            return {};
        }
    }

private:
    QPixmap picture(int row, QString const& name) const
    {
        if (auto const known = m_drawn.constFind(name); known != m_drawn.cend())
            return *known;
        m_awaited.removeAll(row);
        m_awaited.append(row);
        if (m_awaited.size() > mostAwaited)
            m_awaited.removeFirst();
        if (!m_slice.isActive())
            m_slice.start(0);
        return m_blank;
    }

    void drawSome()
    {
        QElapsedTimer time;
        time.start();
        while (!m_awaited.isEmpty() && time.elapsed() < sliceOfTime) {
            auto const at = index(m_awaited.takeLast());
            auto const name = nameAt(at);
            auto const drawn = largePictureOf(m_pictures.iconNamed(name.toStdString()), pictureSize, m_grid.devicePixelRatioF());
            m_drawn.insert(name, drawn.isNull() ? m_blank : drawn);
            Q_EMIT dataChanged(at, at, { Qt::DecorationRole });
        }
        if (!m_awaited.isEmpty())
            m_slice.start(0);
    }

    PictureChooser& m_pictures;
    PictureGrid& m_grid;
    QPixmap m_blank;
    QStringList m_names;
    mutable QList<int> m_awaited; ///< rows without a picture yet
    QHash<QString, QPixmap> m_drawn;
    mutable QTimer m_slice;
};

PictureGrid::PictureGrid(PictureChooser& pictures, std::string const& chosen, QWidget* parent)
    : QDialog(parent)
    , m_pictures(pictures)
    , m_icons(new Icons(pictures, this))
    , m_search(new QLineEdit)
    , m_grid(new GridView(pictures))
    , m_name(new QLabel)
    , m_wanted(chosen)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(text(pictures.texts().gridTitle));
    resize(usualSize.boundedTo(parent->size()));
    build();
    fill();
    m_search->setFocus();
}

void PictureGrid::build()
{
    auto const& texts = m_pictures.texts();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, 12);
    column->addWidget(m_search);
    column->addWidget(m_grid, 1);
    auto* buttons = new QDialogButtonBox;
    auto* line = new QHBoxLayout;
    line->addWidget(m_name, 1);
    line->addWidget(buttons);
    column->addLayout(line);
    m_search->setPlaceholderText(text(texts.search));
    m_search->setAccessibleName(text(texts.search));
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    m_grid->setModel(m_icons);
    m_grid->setAccessibleName(text(texts.grid));
    m_name->setTextFormat(Qt::PlainText);
    m_accept = buttons->addButton(text(texts.accept), QDialogButtonBox::AcceptRole);
    m_accept->setDefault(true);
    buttons->addButton(text(texts.cancel), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { take(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_search, &QLineEdit::textChanged, this, [this] { fill(); });
    connect(m_grid, &QListView::doubleClicked, this, [this] { take(); });
    connect(m_grid->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { showCurrent(); });
}

/// Shows what the search finds, with what was chosen, else the first icon, as the current one.
void PictureGrid::fill()
{
    std::vector<std::string const*> names;
    m_observation = withObservationTracking([&] { names = m_pictures.names(m_search->text().toStdString()); },
        [this] {
            QMetaObject::invokeMethod(
                this, [this] { fill(); }, Qt::QueuedConnection);
        });
    m_icons->setNames(names);
    auto const wanted = m_icons->rowOf(text(m_wanted));
    if (wanted >= 0 || !m_search->text().isEmpty())
        m_grid->setCurrentIndex(m_icons->index(std::max(wanted, 0)));
    m_grid->scrollTo(m_grid->currentIndex());
    showCurrent();
}

void PictureGrid::showCurrent()
{
    auto const current = m_grid->currentIndex();
    auto const name = m_icons->nameAt(current);
    m_name->setText(m_name->fontMetrics().elidedText(name, Qt::ElideMiddle, usualSize.width() / 2));
    m_accept->setEnabled(current.isValid());
}

void PictureGrid::take()
{
    auto const name = m_icons->nameAt(m_grid->currentIndex()).toStdString();
    if (name.empty())
        return;
    accept();
    if (onChosen)
        onChosen(name);
}

/// Down leads from the search into the grid.
bool PictureGrid::eventFilter(QObject* watched, QEvent* event)
{
    bool const isDown = event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down;
    if (!isDown)
        return QDialog::eventFilter(watched, event);
    m_grid->setFocus();
    if (!m_grid->currentIndex().isValid())
        m_grid->setCurrentIndex(m_icons->index(0));
    return true;
}

} // namespace zv
