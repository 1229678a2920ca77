// The bindings of lists and trees.

#include <QHeaderView>
#include <QItemSelection>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTreeView>
#include <utility>

#include "controls/WindowHost.h"
#include "ui/qt/Binder.h"
#include "ui/qt/Convert.h"
#include "ui/qt/Models.h"
#include "ui/qt/RowsWidget.h"

namespace tessarin {

namespace {

// A tree that knows whether the press of the mouse just chose a node: the click that follows must
// not choose it once more.
class NodesWidget : public QTreeView {
 public:
  using QTreeView::QTreeView;

  // A node was chosen by whatever means.
  void Chosen() { chosenByPress_ = pressed_; }
  // Whether the present click still has to choose its node.
  bool ClickCounts() { return !std::exchange(chosenByPress_, false); }

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    pressed_ = true;
    chosenByPress_ = false;
    QTreeView::mousePressEvent(event);
    pressed_ = false;
  }

 private:
  bool pressed_ = false;
  bool chosenByPress_ = false;
};

void ShowSelection(const ListView& list, QTreeView& view) {
  QItemSelection rows;
  for (int row = 0; row < list.Count(); ++row) {
    if (!list.Row(row).selected) continue;
    rows.select(view.model()->index(row, 0), view.model()->index(row, 0));
  }
  view.selectionModel()->select(rows,
                                QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  if (list.Current() < 0) return;
  const auto current = view.model()->index(list.Current(), 0);
  view.selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
  view.scrollTo(current);
}

void ShowColumns(const ListView& list, QTreeView& view, std::vector<ListColumn>& shown) {
  const auto& columns = list.columns();
  view.header()->setSortIndicatorShown(true);  // a head has room for the arrow before it has one
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const bool known = i < shown.size() && shown[i] == columns[i];
    const int section = static_cast<int>(i);
    if (!known) {
      // A column is never too narrow for its own head.
      view.setColumnWidth(section,
                          std::max(columns[i].width, view.header()->sectionSizeHint(section)));
    }
    view.setColumnHidden(static_cast<int>(i), !columns[i].visible);
  }
  shown = columns;
  auto* header = view.header();
  header->setSortIndicatorShown(list.sortColumn >= 0);
  header->setSortIndicator(list.sortColumn,
                           list.sortAscending ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void LookLikeAList(QTreeView& view) {
  view.setRootIsDecorated(false);
  view.setUniformRowHeights(true);
  view.setAlternatingRowColors(true);
  view.setAllColumnsShowFocus(true);
  view.setContextMenuPolicy(Qt::CustomContextMenu);
  view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  view.header()->setSectionsClickable(true);
  view.header()->setStretchLastSection(true);
}

// The tree's own state, brought into the widget after each reset of the model.
void ShowNodes(const std::vector<std::unique_ptr<TreeNode>>& nodes, TreeModel& model,
               QTreeView& view) {
  for (const auto& node : nodes) {
    if (!node->expanded) continue;
    view.setExpanded(model.IndexOf(node.get()), true);
    ShowNodes(node->children, model, view);
  }
}

}  // namespace

QTreeView* Binder::Bind(ListView& list) {
  auto* widget = new RowsWidget(list, &top_, [this, &list](const auto& act) { Act(list, act); });
  auto* model = new ListModel(list, widget);
  widget->setModel(model);
  views_.push_back(widget);
  LookLikeAList(*widget);
  auto shown = std::make_shared<std::vector<ListColumn>>();
  BindState(list, *widget, [&list, widget, model, shown] {
    const QSignalBlocker quiet(widget->selectionModel());
    const int place = widget->verticalScrollBar()->value();
    model->Reset();
    widget->verticalScrollBar()->setValue(place);
    widget->setSelectionMode(list.multipleSelection ? QAbstractItemView::ExtendedSelection
                                                    : QAbstractItemView::SingleSelection);
    widget->setAccessibleDescription(list.Count() == 0 ? ToQt(list.emptyText) : QString());
    widget->setDragEnabled(list.givesRows);
    widget->setAcceptDrops(list.takesRows || list.takesFiles);
    ShowColumns(list, *widget, *shown);
    ShowSelection(list, *widget);
    widget->viewport()->update();
  });
  connect(widget->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this, &list, widget] {
            std::vector<int> rows;
            for (const auto& index : widget->selectionModel()->selectedRows()) {
              rows.push_back(index.row());
            }
            Act(list, [&] { list.SelectByUser(rows, widget->currentIndex().row()); });
            widget->Chosen();
          });
  connect(widget, &QTreeView::activated, this,
          [this, &list] { Act(list, [&] { list.activated(); }); });
  connect(widget->header(), &QHeaderView::sectionClicked, this,
          [this, &list](int column) { Act(list, [&] { list.columnClicked(column); }); });
  return widget;
}

QTreeView* Binder::Bind(TreeView& tree) {
  auto* widget = new NodesWidget(&top_);
  auto* model = new TreeModel(tree, widget);
  widget->setModel(model);
  views_.push_back(widget);
  widget->setHeaderHidden(true);
  widget->setUniformRowHeights(true);
  widget->setContextMenuPolicy(Qt::CustomContextMenu);
  widget->setEditTriggers(QAbstractItemView::NoEditTriggers);
  // By rows, Qt takes a node's place among its siblings for its place in the whole tree when a
  // screen reader selects it. There is one column, so this looks the same.
  widget->setSelectionBehavior(QAbstractItemView::SelectItems);
  auto shown = std::make_shared<Text>();
  BindState(tree, *widget, [&tree, widget, model, shown] {
    const QSignalBlocker quiet(widget);
    const QSignalBlocker quietSelection(widget->selectionModel());
    const int place = widget->verticalScrollBar()->value();
    model->Reset();
    ShowNodes(tree.roots(), *model, *widget);
    const auto current = model->IndexOf(tree.Find(tree.SelectedKey()));
    widget->setCurrentIndex(current);
    widget->verticalScrollBar()->setValue(place);
    // A node that was just selected is brought into view; what the user has scrolled to stays.
    if (*shown != tree.SelectedKey()) widget->scrollTo(current);
    *shown = tree.SelectedKey();
    widget->viewport()->update();
  });
  const auto chosen = [this, &tree](const QModelIndex& index) {
    if (!index.isValid()) return;
    const Text key = TreeModel::Node(index).key;
    Act(tree, [&] { tree.SelectByUser(key); });
  };
  // A click on the selected node counts as well: it loads the folder again.
  connect(widget, &QTreeView::clicked, this, [widget, chosen](const QModelIndex& index) {
    if (widget->ClickCounts()) chosen(index);
  });
  // Keys and a screen reader's choice; the latter selects a node without making it the current one.
  connect(widget->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [widget, chosen](const QItemSelection& selected) {
            if (selected.isEmpty()) return;
            widget->Chosen();
            chosen(selected.indexes().constFirst());
          });
  connect(widget, &QTreeView::expanded, this, [this, &tree](const QModelIndex& index) {
    const Text key = TreeModel::Node(index).key;
    Act(tree, [&] { tree.ExpandByUser(key, true); });
  });
  connect(widget, &QTreeView::collapsed, this, [this, &tree](const QModelIndex& index) {
    const Text key = TreeModel::Node(index).key;
    Act(tree, [&] { tree.ExpandByUser(key, false); });
  });
  return widget;
}

}  // namespace tessarin
