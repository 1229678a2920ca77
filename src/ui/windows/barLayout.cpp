#include <QGridLayout>
#include <QProgressBar>

#include "core/bar.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"

namespace tessarin {

void LayOut(bar& window, QWidget& top, Binder& bind) {
  auto* column = Column(top, 380);
  column->addWidget(AsHeading(bind.Bind(window.Label3), 1.1));
  auto* rows = new QGridLayout;
  rows->setSpacing(kGap);
  rows->setColumnStretch(1, 1);
  rows->addWidget(bind.Bind(window.Label1), 0, 0);
  rows->addWidget(bind.Bind(window.simBar), 0, 1);
  rows->addWidget(bind.Bind(window.Label2), 1, 0);
  rows->addWidget(bind.Bind(window.phoneBar), 1, 1);
  rows->setColumnMinimumWidth(0, 120);
  column->addLayout(rows);
}

}  // namespace tessarin
