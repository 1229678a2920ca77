#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <utility>

#include "core/PageTable.h"
#include "ui/windows/PageLayouts.h"
#include "ui/windows/PageParts.h"
#include "ui/windows/Style.h"

namespace tessarin {

namespace {

QHBoxLayout* Navigator(TessarinMenu& window, Binder& bind) {
  auto* row = new QHBoxLayout;
  row->addWidget(bind.BindAsButtons(window.ViewMode));
  row->addSpacing(kMargin);
  row->addWidget(bind.Bind(window.cYear));
  auto* year = bind.Bind(window.Text1);
  year->setFixedWidth(60);
  row->addWidget(year);
  row->addWidget(bind.Bind(window.UpDown1));
  row->addSpacing(kGap);
  row->addWidget(bind.Bind(window.cMonth));
  row->addWidget(bind.Bind(window.Combo2));
  row->addSpacing(kGap);
  row->addWidget(bind.Bind(window.cDay));
  row->addWidget(bind.Bind(window.Combo3));
  row->addSpacing(kGap);
  row->addWidget(bind.Bind(window.cmdToday));
  row->addStretch(1);
  return row;
}

// A view that comes to the front takes the keys, which move through its days.
void AddView(Panel& frame, Grid& grid, QVBoxLayout& column, Binder& bind) {
  auto* panel = bind.Bind(frame);
  auto* inside = new QVBoxLayout(panel);
  inside->setContentsMargins(0, 0, 0, 0);
  auto* view = bind.Bind(grid);
  inside->addWidget(view);
  column.addWidget(panel, 1);
  bind.Follow(frame, [&frame, view, wasVisible = bool{frame.visible}]() mutable {
    if (!std::exchange(wasVisible, bool{frame.visible}) && frame.visible) view->setFocus();
  });
}

}  // namespace

void LayOutCalendarPage(TessarinMenu& window, QWidget& panel, Binder& bind) {
  auto* column = PageColumn(window, kCalendarPanel, panel, bind);
  column->addLayout(Navigator(window, bind));
  auto* period = AsHeading(bind.Bind(window.lblPeriod), 1.2);
  bind.Follow(window.lblPeriod, [period] { period->setVisible(!period->text().isEmpty()); });
  column->addWidget(period);
  AddView(window.frmAllEvent, window.MSHFlexGrid1, *column, bind);
  AddView(window.frmMonthlyEvent, window.MSHFlexGrid2, *column, bind);
  AddView(window.frmDailyEvent, window.MSHFlexGrid3, *column, bind);
  auto* none = bind.Bind(window.lblNoEntries);
  none->setAlignment(Qt::AlignCenter);
  none->setForegroundRole(QPalette::PlaceholderText);
  column->addWidget(none, 1);
}

}  // namespace tessarin
