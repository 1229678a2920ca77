#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>

#include "core/PageTable.h"
#include "ui/windows/PageLayouts.h"
#include "ui/windows/PageParts.h"
#include "ui/windows/Style.h"

namespace tessarin {

void LayOutCalendarPage(TessarinMenu& window, QWidget& panel, Binder& bind) {
  auto* column = PageColumn(window, kCalendarPanel, panel, bind);
  auto* navigator = new QHBoxLayout;
  navigator->addWidget(bind.Bind(window.cYear));
  auto* year = bind.Bind(window.Text1);
  year->setFixedWidth(70);
  navigator->addWidget(year);
  navigator->addWidget(bind.Bind(window.cMonth));
  navigator->addWidget(bind.Bind(window.Combo2));
  navigator->addWidget(bind.Bind(window.cDay));
  navigator->addWidget(bind.Bind(window.Combo3));
  navigator->addStretch(1);
  column->addLayout(navigator);
  column->addWidget(bind.Bind(window.MSHFlexGrid1), 1);
}

}  // namespace tessarin
