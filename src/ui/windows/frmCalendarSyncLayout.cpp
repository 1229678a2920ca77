#include <QHBoxLayout>

#include "outlook/frmCalendarSync.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"
#include "ui/windows/SyncDialogLayout.h"

namespace tessarin {

void LayOut(frmCalendarSync& window, QWidget& top, Binder& bind) {
  auto* panes = new QHBoxLayout;
  panes->setSpacing(kGap);
  panes->addLayout(SyncPane(window, 0, AsHeading(bind.Bind(window.lblMobile), 1.0), bind), 1);
  panes->addLayout(SyncArrows(window, bind));
  panes->addLayout(SyncPane(window, 1, AsHeading(bind.Bind(window.lblOutlook), 1.0), bind), 1);
  auto* column = new QVBoxLayout(&top);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kGap);
  column->addLayout(panes, 1);
  column->addLayout(SyncFoot(window, bind));
  SizeSyncDialog(top);
}

}  // namespace tessarin
