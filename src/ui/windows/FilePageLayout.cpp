#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTreeView>

#include "core/PageTable.h"
#include "ui/windows/PageLayouts.h"
#include "ui/windows/PageParts.h"
#include "ui/windows/Style.h"

namespace tessarin {

namespace {

// A tree above its list.
QSplitter* Pane(QTreeView* tree, QWidget* list) {
  auto* pane = Splitter(Qt::Vertical, {tree, list});
  pane->setSizes({200, 300});
  pane->setStretchFactor(1, 1);
  return pane;
}

// An arrow that is not offered keeps its place.
QWidget* Arrows(const FilePanes& panes, Binder& bind) {
  auto* frame = new QWidget;
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(0, 0, 0, 0);
  column->addStretch(1);
  for (Button* arrow : {&panes.download, &panes.upload}) {
    auto* button = bind.Bind(*arrow);
    button->setIconSize({24, 24});
    button->setFixedSize(40, 40);
    QSizePolicy policy = button->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    button->setSizePolicy(policy);
    column->addWidget(button);
  }
  column->addStretch(1);
  return frame;
}

// The player's buttons of the ringtone page.
QHBoxLayout* Player(TessarinMenu& window, Binder& bind) {
  auto* row = new QHBoxLayout;
  for (Button* button : {&window.cmdPlay, &window.cmdPause, &window.cmdStop}) {
    row->addWidget(bind.Bind(*button));
  }
  row->addStretch(1);
  return row;
}

// The list of files, beside it what is seen of the one that is selected.
QSplitter* WithPreview(QTreeView* list, Picture& preview, Binder& bind) {
  auto* both = Splitter(Qt::Horizontal, {list, bind.Bind(preview, 140, 140)});
  both->setSizes({280, 150});
  both->setStretchFactor(0, 1);
  return both;
}

QWidget* PhoneSide(TessarinMenu& window, const FilePanes& panes, Binder& bind) {
  auto* phone = new QWidget;
  auto* column = new QVBoxLayout(phone);
  column->setContentsMargins(0, 0, 0, 0);
  auto* head = new QHBoxLayout;
  head->addWidget(AsHeading(bind.Bind(*panes.phoneHead), 1.0), 1);
  if (panes.storage != nullptr) head->addWidget(bind.Bind(*panes.storage));
  column->addLayout(head);
  auto* tree = bind.Bind(panes.phoneTree);
  auto* list = bind.Bind(panes.phoneList);
  QWidget* files = list;
  if (panes.preview != nullptr) files = WithPreview(list, *panes.preview, bind);
  column->addWidget(Pane(tree, files), 1);
  if (panes.panel == kRingtonePanel) column->addLayout(Player(window, bind));
  if (panes.preview == &window.previewLogo) column->addWidget(bind.Bind(window.Check1));
  return phone;
}

QWidget* ComputerSide(const FilePanes& panes, int headHeight, Binder& bind) {
  auto* computer = new QWidget;
  auto* row = new QHBoxLayout(computer);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(Arrows(panes, bind));
  auto* column = new QVBoxLayout;
  auto* head = AsHeading(bind.Bind(*panes.computerHead), 1.0);
  head->setMinimumHeight(headHeight);
  column->addWidget(head);
  column->addWidget(Pane(bind.Bind(panes.computerTree), bind.Bind(panes.computerList)), 1);
  row->addLayout(column, 1);
  return computer;
}

}  // namespace

void LayOutFilePage(TessarinMenu& window, const FilePanes& panes, QWidget& panel, Binder& bind) {
  auto* column = PageColumn(window, panes.panel, panel, bind);
  QWidget* phone = PhoneSide(window, panes, bind);
  const int headHeight = phone->layout()->itemAt(0)->sizeHint().height();
  auto* both = Splitter(Qt::Horizontal, {phone, ComputerSide(panes, headHeight, bind)});
  both->setSizes({440, 560});
  column->addWidget(both, 1);
}

}  // namespace tessarin
