#include <QHBoxLayout>
#include <QPushButton>

#include "core/Asking.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"

namespace tessarin {

void LayOut(Asking& window, QWidget& top, Binder& bind) {
  auto* column = Column(top, 360);
  auto* question = new QHBoxLayout;
  question->setSpacing(kMargin);
  question->addWidget(bind.Bind(window.Image1, 48, 48), 0);
  question->addWidget(bind.Bind(window.Label1), 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  auto* read = bind.Bind(window.Command1);
  read->setDefault(true);
  buttons->addWidget(read);
  buttons->addWidget(bind.Bind(window.Command2));
  column->addLayout(question);
  column->addLayout(buttons);
}

}  // namespace tessarin
