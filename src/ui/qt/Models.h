#pragma once

// Models that read a control's own rows, nodes and cells; nothing is copied into widgets.

#include <QAbstractItemModel>
#include <QAbstractTableModel>

#include "controls/ListView.h"
#include "controls/TreeView.h"

namespace tessarin {

class ListModel : public QAbstractTableModel {
 public:
  explicit ListModel(ListView& list, QObject* parent);
  // Call after each change of the list.
  void Reset();

  int rowCount(const QModelIndex& parent) const override;
  int columnCount(const QModelIndex& parent) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  ListView& list_;
};

// An index carries the node's address, so the model is reset as soon as the tree changes.
class TreeModel : public QAbstractItemModel {
 public:
  explicit TreeModel(TreeView& tree, QObject* parent);
  void Reset();

  static const TreeNode& Node(const QModelIndex& index);
  QModelIndex IndexOf(const TreeNode* node) const;  // invalid for null

  QModelIndex index(int row, int column, const QModelIndex& parent) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent) const override;
  int columnCount(const QModelIndex& parent) const override;
  bool hasChildren(const QModelIndex& parent) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  const std::vector<std::unique_ptr<TreeNode>>& Children(const QModelIndex& parent) const;

  TreeView& tree_;
};

}  // namespace tessarin
