#pragma once

#include <QTreeView>
#include <functional>

#include "controls/ListView.h"

namespace tessarin {

// The widget of a list: says in its middle why it is empty, tells what the user did to it with
// mouse and keys, and takes part in drag and drop.
class RowsWidget : public QTreeView {
 public:
  using RunAct = std::function<void(const std::function<void()>&)>;

  // `list` must outlive the widget's model, which is taken away when both part.
  RowsWidget(ListView& list, QWidget* parent, RunAct run);

  // Rows were chosen, by whatever means. One that came neither from the mouse nor from the keys is
  // a screen reader's.
  void Chosen();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void startDrag(Qt::DropActions) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent*) override {}
  void dropEvent(QDropEvent* event) override;

 private:
  void Tell(ListAct act);
  // The list whose rows are dragged, null for none that may be dropped here.
  RowsWidget* SourceOf(const QDropEvent& event) const;
  bool Takes(const QDropEvent& event) const;

  ListView& list_;
  RunAct run_;
  int input_ = 0;  // above 0 while mouse or keys are at work
};

}  // namespace tessarin
