#include "ui/qt/Models.h"

#include <QFont>

#include "ui/qt/Convert.h"
#include "ui/qt/Icons.h"
#include "ui/qt/ToolTips.h"

namespace tessarin {

namespace {

QVariant BoldFont(bool bold) {
  if (!bold) return {};
  QFont font;
  font.setBold(true);
  return font;
}

QVariant Alignment(const ListColumn& column) {
  return static_cast<int>(Qt::AlignVCenter | (column.numbers ? Qt::AlignRight : Qt::AlignLeft));
}

}  // namespace

ListModel::ListModel(ListView& list, QObject* parent) : QAbstractTableModel(parent), list_(list) {}

void ListModel::Reset() {
  beginResetModel();
  endResetModel();
}

int ListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : list_.Count();
}

int ListModel::columnCount(const QModelIndex&) const {
  return static_cast<int>(list_.columns().size());
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
  const auto flags = QAbstractTableModel::flags(index);
  return list_.givesRows ? flags | Qt::ItemIsDragEnabled : flags;
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
  const ListRow& row = list_.Row(index.row());
  switch (role) {
    case Qt::DisplayRole:
      // A row is one line high.
      return ToQt(list_.Cell(index.row(), index.column())).replace(u'\n', u' ');
    case Qt::ToolTipRole:
      return PlainTip(row.toolTip.empty() ? list_.Cell(index.row(), index.column()) : row.toolTip);
    case Qt::DecorationRole:
      return index.column() == 0 ? QVariant(Icon(row.image)) : QVariant();
    case Qt::FontRole:
      return BoldFont(row.bold);
    case Qt::TextAlignmentRole:
      return Alignment(list_.columns()[static_cast<std::size_t>(index.column())]);
    default:
      return {};
  }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  const ListColumn& column = list_.columns()[static_cast<std::size_t>(section)];
  if (role == Qt::TextAlignmentRole) return Alignment(column);
  return role == Qt::DisplayRole ? ToQt(column.heading) : QVariant();
}

TreeModel::TreeModel(TreeView& tree, QObject* parent) : QAbstractItemModel(parent), tree_(tree) {}

void TreeModel::Reset() {
  beginResetModel();
  endResetModel();
}

const TreeNode& TreeModel::Node(const QModelIndex& index) {
  return *static_cast<const TreeNode*>(index.internalPointer());
}

const std::vector<std::unique_ptr<TreeNode>>& TreeModel::Children(const QModelIndex& parent) const {
  return parent.isValid() ? Node(parent).children : tree_.roots();
}

QModelIndex TreeModel::IndexOf(const TreeNode* node) const {
  if (node == nullptr) return {};
  const auto& family = node->parent == nullptr ? tree_.roots() : node->parent->children;
  int row = 0;
  while (family[static_cast<std::size_t>(row)].get() != node) ++row;
  return createIndex(row, 0, node);
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
  const auto& family = Children(parent);
  if (row < 0 || row >= static_cast<int>(family.size()) || column != 0) return {};
  return createIndex(row, 0, family[static_cast<std::size_t>(row)].get());
}

QModelIndex TreeModel::parent(const QModelIndex& index) const {
  return index.isValid() ? IndexOf(Node(index).parent) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const {
  return static_cast<int>(Children(parent).size());
}

int TreeModel::columnCount(const QModelIndex&) const { return 1; }

bool TreeModel::hasChildren(const QModelIndex& parent) const {
  return !Children(parent).empty() || (parent.isValid() && Node(parent).mayHaveChildren);
}

QVariant TreeModel::data(const QModelIndex& index, int role) const {
  const TreeNode& node = Node(index);
  if (role == Qt::ToolTipRole) return PlainTip(node.text);
  if (role == Qt::DisplayRole) return ToQt(node.text);
  if (role != Qt::DecorationRole) return {};
  return Icon(node.key == tree_.SelectedKey() ? node.selectedImage : node.image);
}

}  // namespace tessarin
