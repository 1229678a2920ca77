#include "files/frmSplashTransmission.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"

namespace tessarin {

void LayOut(frmSplashTransmission& window, QWidget& top, Binder& bind) {
  auto* column = Column(top, 340);
  column->addWidget(bind.Bind(window.Animation1, 240, 120));
  auto* words = bind.Bind(window.Label1);
  words->setAlignment(Qt::AlignHCenter);
  column->addWidget(words);
}

}  // namespace tessarin
