#include <QComboBox>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QToolBar>

#include "outlook/frmPhonebookSync.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"
#include "ui/windows/SyncDialogLayout.h"

namespace tessarin {

void LayOut(frmPhonebookSync& window, QWidget& top, Binder& bind) {
  // Its one menu pops up; the bar itself is never seen.
  bind.Bind(window.mnuRClick)->hide();
  auto* panes = new QHBoxLayout;
  panes->setSpacing(kGap);
  panes->addLayout(SyncPane(window, 0, bind.Bind(window.cboLocation[0]), bind), 1);
  panes->addLayout(SyncArrows(window, bind));
  panes->addLayout(SyncPane(window, 1, bind.Bind(window.cboLocation[1]), bind), 1);
  auto* head = new QHBoxLayout;
  head->addWidget(bind.Bind(window.lblChoose), 1);
  head->addWidget(bind.Bind(window.Toolbar1, false));
  auto* column = new QVBoxLayout(&top);
  column->setContentsMargins(kMargin, kGap, kMargin, kMargin);
  column->setSpacing(kGap);
  column->addLayout(head);
  column->addLayout(panes, 1);
  column->addLayout(SyncFoot(window, bind));
  SizeSyncDialog(top);
}

}  // namespace tessarin
