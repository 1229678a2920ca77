#include "ui/qt/RowsWidget.h"

#include <QDrag>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QUrl>

#include "ui/qt/Convert.h"

namespace tessarin {

namespace {

constexpr char kRows[] = "application/x-tessarin-rows";

// Counts one piece of input for as long as it is handled.
class Input {
 public:
  explicit Input(int& count) : count_(count) { ++count_; }
  ~Input() { --count_; }
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;

 private:
  int& count_;
};

// Keys that leave the list, or do nothing by themselves.
bool IsPassing(int key) {
  return key == Qt::Key_Tab || key == Qt::Key_Backtab ||
         (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr ||
         key == Qt::Key_Menu;
}

std::vector<std::filesystem::path> LocalFiles(const QMimeData& data) {
  std::vector<std::filesystem::path> files;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) files.emplace_back(url.toLocalFile().toStdString());
  }
  return files;
}

}  // namespace

RowsWidget::RowsWidget(ListView& list, QWidget* parent, RunAct run)
    : QTreeView(parent), list_(list), run_(std::move(run)) {
  connect(this, &QWidget::customContextMenuRequested, this, [this] { Tell(ListAct::RightButton); });
}

void RowsWidget::Chosen() {
  if (input_ == 0) Tell(ListAct::LeftButton);
}

void RowsWidget::Tell(ListAct act) {
  run_([this, act] { list_.released(act); });
}

void RowsWidget::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  if (model() == nullptr || list_.Count() > 0 || list_.emptyText->empty()) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.drawText(viewport()->rect().adjusted(12, 12, -12, -12),
                   Qt::AlignCenter | Qt::TextWordWrap, ToQt(list_.emptyText));
}

void RowsWidget::mousePressEvent(QMouseEvent* event) {
  const Input input(input_);
  QTreeView::mousePressEvent(event);
}

void RowsWidget::mouseMoveEvent(QMouseEvent* event) {
  const Input input(input_);
  QTreeView::mouseMoveEvent(event);
}

// The right button is told of with its menu, which on some desktops swallows the release.
void RowsWidget::mouseReleaseEvent(QMouseEvent* event) {
  const Qt::MouseButton button = event->button();
  {
    const Input input(input_);
    QTreeView::mouseReleaseEvent(event);
  }
  if (button == Qt::LeftButton) {
    Tell(ListAct::LeftButton);
  } else if (button != Qt::RightButton) {
    Tell(ListAct::OtherButton);
  }
}

void RowsWidget::keyPressEvent(QKeyEvent* event) {
  const Input input(input_);
  QTreeView::keyPressEvent(event);
}

void RowsWidget::keyReleaseEvent(QKeyEvent* event) {
  QTreeView::keyReleaseEvent(event);
  const int key = event->key();
  if (event->isAutoRepeat() || IsPassing(key)) return;
  Tell(key == Qt::Key_Up || key == Qt::Key_Down ? ListAct::ArrowKey : ListAct::OtherKey);
}

void RowsWidget::startDrag(Qt::DropActions) {
  if (!list_.givesRows || selectionModel()->selectedRows().isEmpty()) return;
  auto* rows = new QMimeData;
  rows->setData(QString::fromLatin1(kRows), QByteArray());
  auto* drag = new QDrag(this);
  drag->setMimeData(rows);
  drag->exec(Qt::CopyAction);
}

RowsWidget* RowsWidget::SourceOf(const QDropEvent& event) const {
  auto* source = dynamic_cast<RowsWidget*>(event.source());
  const bool fits = list_.takesRows && source != nullptr && source != this &&
                    event.mimeData()->hasFormat(QString::fromLatin1(kRows));
  return fits ? source : nullptr;
}

bool RowsWidget::Takes(const QDropEvent& event) const {
  if (!isEnabled()) return false;
  return SourceOf(event) != nullptr || (list_.takesFiles && !LocalFiles(*event.mimeData()).empty());
}

void RowsWidget::dragEnterEvent(QDragEnterEvent* event) {
  if (Takes(*event)) event->acceptProposedAction();
}

void RowsWidget::dragMoveEvent(QDragMoveEvent* event) { event->setAccepted(Takes(*event)); }

// What the drop asks for may open windows, and the one who drags must not wait for those.
void RowsWidget::dropEvent(QDropEvent* event) {
  if (!Takes(*event)) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
  RowsWidget* source = SourceOf(*event);
  const auto files = LocalFiles(*event->mimeData());
  QMetaObject::invokeMethod(
      this,
      [this, from = source == nullptr ? nullptr : &source->list_, files] {
        run_([&] {
          if (from != nullptr) {
            list_.rowsDropped(*from);
          } else {
            list_.filesDropped(files);
          }
        });
      },
      Qt::QueuedConnection);
}

}  // namespace tessarin
