#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>

#include "messages/frmAddTextTemplate.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"

namespace tessarin {

void LayOut(frmAddTextTemplate& window, QWidget& top, Binder& bind) {
  auto* column = Column(top, 380);
  column->addWidget(bind.Bind(window.Label1));
  auto* text = bind.BindMultiLine(window.Text1);
  text->setTabChangesFocus(true);
  text->setFixedHeight(100);
  column->addWidget(text);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(bind.Bind(window.Command1));
  buttons->addWidget(bind.Bind(window.Command2));
  column->addLayout(buttons);
}

}  // namespace tessarin
