#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>

#include "phonebook/frmCopyToSIM.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"

namespace tessarin {

void LayOut(frmCopyToSIM& window, QWidget& top, Binder& bind) {
  auto* column = Column(top, 340);
  column->addWidget(AsHeading(bind.Bind(window.Label2), 1.2));
  column->addWidget(bind.Bind(window.Label1));
  auto* numbers = bind.Bind(window.List1);
  numbers->setFixedHeight(130);  // the five numbers that a contact can have
  column->addWidget(numbers);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  auto* copy = bind.Bind(window.Command1);
  copy->setDefault(true);
  buttons->addWidget(copy);
  buttons->addWidget(bind.Bind(window.Command2));
  column->addLayout(buttons);
}

}  // namespace tessarin
