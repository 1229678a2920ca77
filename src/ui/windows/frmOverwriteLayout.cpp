#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>

#include "files/frmOverwrite.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"

namespace tessarin {

namespace {

// A record in a frame, below what would become of it.
QVBoxLayout* Record(QLabel* heading, QLabel* record) {
  auto* column = new QVBoxLayout;
  column->addWidget(AsHeading(heading, 1.0));
  record->setFrameShape(QFrame::StyledPanel);
  record->setMargin(kGap);
  record->setMinimumSize(220, 160);
  record->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  record->setTextInteractionFlags(Qt::TextSelectableByMouse);
  column->addWidget(record, 1);
  return column;
}

}  // namespace

void LayOut(frmOverwrite& window, QWidget& top, Binder& bind) {
  auto* column = Column(top, 480);
  auto* records = new QHBoxLayout;
  records->setSpacing(kMargin);
  records->addLayout(Record(bind.Bind(window.Label1), bind.Bind(window.lblOverwrite[1])), 1);
  records->addLayout(Record(bind.Bind(window.Label2), bind.Bind(window.lblOverwrite[0])), 1);
  column->addLayout(records);
  column->addWidget(bind.Bind(window.chkAddNew));
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  for (Button* button : {&window.cmdYes, &window.cmdYesToAll, &window.cmdNo, &window.cmdNoToAll}) {
    buttons->addWidget(bind.Bind(*button));
  }
  column->addLayout(buttons);
}

}  // namespace tessarin
