#include "ui/qt/GridView.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>

#include "ui/qt/Convert.h"
#include "ui/qt/Icons.h"
#include "ui/qt/ToolTips.h"

namespace tessarin {

namespace {

constexpr int kCellPadding = 6;

QColor ColourOf(const CellColour& colour) {
  const bool isDark = QApplication::palette().color(QPalette::Base).lightness() < 128;
  return QColor(QRgb(isDark ? colour.dark : colour.light));
}

std::optional<GridKey> KeyOf(const QKeyEvent& event) {
  if ((event.modifiers() & ~Qt::KeypadModifier) != 0) return std::nullopt;
  switch (event.key()) {
    case Qt::Key_Left:
      return GridKey::Left;
    case Qt::Key_Right:
      return GridKey::Right;
    case Qt::Key_Up:
      return GridKey::Up;
    case Qt::Key_Down:
      return GridKey::Down;
    case Qt::Key_PageUp:
      return GridKey::PageUp;
    case Qt::Key_PageDown:
      return GridKey::PageDown;
    case Qt::Key_Home:
      return GridKey::Home;
    case Qt::Key_Space:
      return GridKey::Space;
    default:
      return std::nullopt;
  }
}

void PaintBadge(QPainter& painter, const QStyleOptionViewItem& option, const QString& badge) {
  QFont font = option.font;
  font.setPointSizeF(font.pointSizeF() * 0.75);
  const QFontMetrics metrics(font);
  const int height = metrics.height() + 2;
  const int width = std::max(height, metrics.horizontalAdvance(badge) + height / 2);
  QRect place(0, 0, width, height);
  place.moveBottomRight(option.rect.bottomRight() - QPoint(kCellPadding, kCellPadding));
  painter.setPen(Qt::NoPen);
  painter.setBrush(option.palette.color(QPalette::Link));
  painter.drawRoundedRect(place, height / 2.0, height / 2.0);
  painter.setFont(font);
  painter.setPen(option.palette.color(QPalette::Base));
  painter.drawText(place, Qt::AlignCenter, badge);
}

}  // namespace

void GridModel::Reset() {
  beginResetModel();
  endResetModel();
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : std::max(0, grid_.Rows() - 1);
}

int GridModel::columnCount(const QModelIndex&) const { return grid_.Columns(); }

QVariant GridModel::Look(const GridCell& cell, int role) const {
  if (role == Qt::DisplayRole) return ToQt(cell.text);
  if (role == Qt::BackgroundRole && cell.background) return ColourOf(*cell.background);
  if (role == Qt::TextAlignmentRole && cell.centred) return int{Qt::AlignCenter};
  if (role == Qt::AccessibleTextRole && !cell.description.empty()) return ToQt(cell.description);
  return {};
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const GridCell& cell = grid_.Cell(index.row() + 1, index.column());
  switch (role) {
    case Qt::DecorationRole:
      return cell.image.empty() ? QVariant() : QVariant(Icon(cell.image));
    case Qt::ToolTipRole:
      return PlainTip(cell.description.empty() ? cell.text : cell.description);
    case kBadge:
      return ToQt(cell.badge);
    case kFramed:
      return cell.framed;
    case kLined:
      return !grid_.wholeRows;
    case Qt::TextAlignmentRole:
      if (grid_.fillsPlace && !cell.centred) return int{Qt::AlignTop | Qt::AlignLeft};
      break;
    default:
      break;
  }
  return Look(cell, role);
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || grid_.Rows() == 0) return {};
  const GridCell& cell = grid_.Cell(0, section);
  if (role == Qt::TextAlignmentRole && !cell.centred) return int{Qt::AlignVCenter | Qt::AlignLeft};
  return Look(cell, role);
}

// A picture without words stands in the middle of its cell.
void CellPainter::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  if (!option->icon.isNull() && option->text.isEmpty()) {
    option->decorationSize = QSize(option->rect.width(), option->decorationSize.height());
    option->decorationAlignment = Qt::AlignCenter;
  }
}

void CellPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  if (index.data(GridModel::kLined).toBool()) {
    painter->setPen(cell.palette.color(QPalette::Mid));
    painter->drawLine(cell.rect.topRight(), cell.rect.bottomRight());
    painter->drawLine(cell.rect.bottomLeft(), cell.rect.bottomRight());
  }
  if (index.data(GridModel::kFramed).toBool()) {
    painter->setPen(QPen(cell.palette.color(QPalette::Link), 2));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(QRectF(cell.rect).adjusted(1, 1, -2, -2));
  }
  const QString badge = index.data(GridModel::kBadge).toString();
  if (!badge.isEmpty()) PaintBadge(*painter, cell, badge);
  painter->restore();
}

GridView::GridView(const Grid& grid, Keys keys, QWidget* parent)
    : QTableView(parent), grid_(grid), keys_(std::move(keys)) {
  verticalHeader()->hide();
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setContextMenuPolicy(Qt::CustomContextMenu);
  setTabKeyNavigation(false);
  setShowGrid(false);  // the theme's own lines cannot be seen on dark
  setWordWrap(false);
  setCornerButtonEnabled(false);
  horizontalHeader()->setHighlightSections(false);
  setItemDelegate(new CellPainter(this));
}

void GridView::ShowSheet() {
  setSelectionBehavior(grid_.wholeRows ? QAbstractItemView::SelectRows
                                       : QAbstractItemView::SelectItems);
  setAccessibleDescription(grid_.Rows() <= 1 ? ToQt(grid_.emptyText) : QString());
  if (const GridFont& wanted = grid_.font(); !wanted.family.empty()) {
    QFont font(QString::fromStdString(wanted.family), wanted.points);
    font.setBold(wanted.bold);
    setFont(font);
    horizontalHeader()->setFont(font);
  }
  const auto mode = grid_.fillsPlace ? QHeaderView::Stretch : QHeaderView::Interactive;
  horizontalHeader()->setSectionResizeMode(mode);
  verticalHeader()->setSectionResizeMode(mode);
  horizontalHeader()->setStretchLastSection(!grid_.fillsPlace);
  ShowColumns();
}

void GridView::ShowColumns() {
  constexpr int kMargin = 2 * kCellPadding;
  for (int column = 0; column < grid_.Columns(); ++column) {
    const int width = grid_.ColumnWidth(column);
    setColumnHidden(column, width == Grid::kHidden);
    if (width == Grid::kHidden || grid_.fillsPlace) continue;
    const int needed =
        std::max(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column));
    setColumnWidth(column, width == Grid::kFitToText ? needed + kMargin : width);
  }
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const auto key = KeyOf(*event);
  if (key && keys_(*key)) {
    event->accept();
  } else {
    QTableView::keyPressEvent(event);
  }
}

void GridView::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (grid_.Rows() > 1 || grid_.emptyText->empty()) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.drawText(viewport()->rect().adjusted(12, 12, -12, -12),
                   Qt::AlignCenter | Qt::TextWordWrap, ToQt(grid_.emptyText));
}

}  // namespace tessarin
