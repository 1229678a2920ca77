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
QSplitter* Pane(QTreeView* tree, QTreeView* list) {
  auto* pane = Splitter(Qt::Vertical, {tree, list});
  pane->setSizes({200, 300});
  pane->setStretchFactor(1, 1);
  return pane;
}

QWidget* Arrows(const FilePanes& panes, Binder& bind) {
  auto* frame = new QWidget;
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(0, 0, 0, 0);
  column->addStretch(1);
  for (Button* arrow : {&panes.download, &panes.upload}) {
    auto* button = bind.Bind(*arrow);
    button->setIconSize({24, 24});
    button->setFixedSize(40, 40);
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

}  // namespace

void LayOutFilePage(TessarinMenu& window, const FilePanes& panes, QWidget& panel, Binder& bind) {
  auto* column = PageColumn(window, panes.panel, panel, bind);
  auto* phone = new QWidget;
  auto* phoneColumn = new QVBoxLayout(phone);
  phoneColumn->setContentsMargins(0, 0, 0, 0);
  auto* phoneHead = new QHBoxLayout;
  phoneHead->addWidget(AsHeading(bind.Bind(*panes.phoneHead), 1.0), 1);
  if (panes.storage != nullptr) phoneHead->addWidget(bind.Bind(*panes.storage));
  phoneColumn->addLayout(phoneHead);
  phoneColumn->addWidget(Pane(bind.Bind(panes.phoneTree), bind.Bind(panes.phoneList)), 1);
  if (panes.panel == kRingtonePanel) phoneColumn->addLayout(Player(window, bind));
  if (panes.preview != nullptr) phoneColumn->addWidget(bind.Bind(*panes.preview, 120, 100));

  auto* computer = new QWidget;
  auto* computerRow = new QHBoxLayout(computer);
  computerRow->setContentsMargins(0, 0, 0, 0);
  computerRow->addWidget(Arrows(panes, bind));
  auto* computerColumn = new QVBoxLayout;
  auto* computerHead = AsHeading(bind.Bind(*panes.computerHead), 1.0);
  computerHead->setMinimumHeight(phoneHead->sizeHint().height());
  computerColumn->addWidget(computerHead);
  computerColumn->addWidget(Pane(bind.Bind(panes.computerTree), bind.Bind(panes.computerList)), 1);
  computerRow->addLayout(computerColumn, 1);
  auto* both = Splitter(Qt::Horizontal, {phone, computer});
  both->setSizes({500, 500});
  column->addWidget(both, 1);
}

}  // namespace tessarin
