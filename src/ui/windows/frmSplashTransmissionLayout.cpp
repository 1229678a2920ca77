#include <QProgressBar>

#include "files/frmSplashTransmission.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"

namespace tessarin {

void LayOut(frmSplashTransmission& window, QWidget& top, Binder& bind) {
  auto* column = Column(top, 380);
  column->addWidget(bind.Bind(window.Animation1, 240, 120));
  auto* words = bind.BindElided(window.Label1);
  words->setAlignment(Qt::AlignHCenter);
  column->addWidget(words);
  column->addWidget(bind.Bind(window.prgTransfer));
  auto* amount = bind.BindElided(window.lblAmount);
  amount->setAlignment(Qt::AlignHCenter);
  amount->setForegroundRole(QPalette::PlaceholderText);
  column->addWidget(amount);
}

}  // namespace tessarin
