#include "ui/windows/SyncDialogLayout.h"

#include <QCheckBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeView>

#include "ui/windows/Style.h"

namespace tessarin {

namespace {

constexpr int kArrow = 40;  // pixels each way

}  // namespace

QVBoxLayout* SyncPane(SyncDialog& window, int pane, QWidget* head, Binder& bind) {
  const auto at = static_cast<std::size_t>(pane);
  auto* column = new QVBoxLayout;
  column->addWidget(head);
  column->addWidget(bind.Bind(window.lvwLocation[at]), 1);
  column->addWidget(bind.Bind(window.chkLocation[at]));
  return column;
}

QVBoxLayout* SyncArrows(SyncDialog& window, Binder& bind) {
  auto* column = new QVBoxLayout;
  column->addStretch(1);
  for (Button* arrow : {&window.cmdToLeft, &window.cmdToRight}) {
    auto* button = bind.Bind(*arrow);
    button->setIconSize({24, 24});
    button->setFixedSize(kArrow, kArrow);
    column->addWidget(button);
  }
  column->addStretch(1);
  return column;
}

QVBoxLayout* SyncFoot(SyncDialog& window, Binder& bind) {
  // Each below its pane.
  auto* told = new QHBoxLayout;
  told->setSpacing(0);
  for (Label& result : window.lblResult) {
    auto* words = bind.Bind(result);
    words->setMinimumHeight(words->fontMetrics().height() * 2);
    if (told->count() > 0) told->addSpacing(kArrow + 2 * kGap);
    told->addWidget(words, 1);
  }
  auto* buttons = new QHBoxLayout;
  auto* row = bind.Bind(window.lblRow);
  row->setWordWrap(false);
  buttons->addWidget(bind.Bind(window.prgRows), 2);
  buttons->addWidget(row, 1);
  buttons->addStretch(1);
  buttons->addWidget(bind.Bind(window.cmdSync));
  buttons->addWidget(bind.Bind(window.cmdCancel));
  auto* foot = new QVBoxLayout;
  foot->addLayout(told);
  foot->addLayout(buttons);
  return foot;
}

void SizeSyncDialog(QWidget& top) {
  top.setMinimumSize(720, 440);
  top.resize(960, 600);
}

}  // namespace tessarin
