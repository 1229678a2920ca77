#include "core/frmSplashFindCOM.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"

namespace tessarin {

void LayOut(frmSplashFindCOM& window, QWidget& top, Binder& bind) {
  auto* column = Column(top, 440);
  column->addWidget(bind.Bind(window.Animation1, 240, 120));
  auto* port = AsHeading(bind.Bind(window.lblPort), 1.1);
  auto* hint = bind.Bind(window.lblHint);
  auto* passedOver = AsHeading(bind.Bind(window.lblPassedOver), 1.0);
  auto* trouble = bind.Bind(window.lblTrouble);
  for (QLabel* label : {port, hint, passedOver, trouble}) column->addWidget(label);
  port->setAlignment(Qt::AlignHCenter);
  hint->setAlignment(Qt::AlignHCenter);
  hint->setForegroundRole(QPalette::PlaceholderText);
}

}  // namespace tessarin
