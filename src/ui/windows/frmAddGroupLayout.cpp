#include <QHBoxLayout>
#include <QPushButton>
#include <QTreeView>

#include "phonebook/frmAddGroup.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"

namespace tessarin {

// Contacts, or the numbers of one, on the left; what was chosen on the right.
void LayOut(frmAddGroup& window, QWidget& top, Binder& bind) {
  auto* lists = new QHBoxLayout;
  lists->setSpacing(kGap);
  for (ListView* source : {&window.ListView1, &window.ListView3}) {
    lists->addWidget(bind.Bind(*source), 1);
  }
  auto* moves = new QVBoxLayout;
  moves->addStretch(1);
  for (Button* button : {&window.Command3, &window.Command4, &window.Command5}) {
    moves->addWidget(bind.Bind(*button));
  }
  moves->addStretch(1);
  lists->addLayout(moves);
  lists->addWidget(bind.Bind(window.ListView2), 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(bind.Bind(window.Command1));
  buttons->addWidget(bind.Bind(window.Command2));
  auto* column = new QVBoxLayout(&top);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kGap);
  column->addLayout(lists, 1);
  column->addLayout(buttons);
  top.setMinimumSize(560, 320);
  top.resize(860, 420);
}

}  // namespace tessarin
