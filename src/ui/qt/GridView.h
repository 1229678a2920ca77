#pragma once

// A grid on the screen: the model that reads its cells, how a cell is painted, and its keys.

#include <QAbstractTableModel>
#include <QStyledItemDelegate>
#include <QTableView>

#include "controls/Grid.h"

namespace tessarin {

// Row 0 of the grid is the header.
class GridModel : public QAbstractTableModel {
 public:
  // The letters in a cell's corner, whether it is framed, and whether lines part it from others.
  enum Role { kBadge = Qt::UserRole, kFramed, kLined };

  GridModel(Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(grid) {}
  // Call after each change of cells.
  void Reset();

  int rowCount(const QModelIndex& parent) const override;
  int columnCount(const QModelIndex& parent) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QVariant Look(const GridCell& cell, int role) const;

  Grid& grid_;
};

class CellPainter : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

class GridView : public QTableView {
 public:
  using Keys = std::function<bool(GridKey)>;
  // `keys` is asked first what a key does.
  GridView(const Grid& grid, Keys keys, QWidget* parent);

  // Brings what the grid says of the whole sheet into the view.
  void ShowSheet();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void ShowColumns();

  const Grid& grid_;
  Keys keys_;
};

}  // namespace tessarin
