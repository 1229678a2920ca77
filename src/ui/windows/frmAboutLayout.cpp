#include <QHBoxLayout>
#include <QPushButton>

#include "core/frmAbout.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"

namespace tessarin {

void LayOut(frmAbout& window, QWidget& top, Binder& bind) {
  auto* words = new QVBoxLayout;
  words->setSpacing(kGap);
  words->addWidget(AsHeading(bind.Bind(window.lblTitle), 1.6));
  for (Label* label : {&window.lblVersion, &window.lblPurpose, &window.lblLicense}) {
    words->addWidget(bind.Bind(*label));
  }
  auto* middle = new QHBoxLayout;
  middle->setSpacing(kMargin);
  middle->addWidget(bind.Bind(window.Image1, 96, 96), 0, Qt::AlignTop);
  middle->addLayout(words, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  auto* ok = bind.Bind(window.cmdOK);
  ok->setDefault(true);
  buttons->addWidget(ok);
  auto* column = Column(top, 420);
  column->addLayout(middle);
  column->addLayout(buttons);
}

}  // namespace tessarin
