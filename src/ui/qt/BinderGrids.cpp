// The bindings of grids and of what steps through numbers, dates and times.

#include <QButtonGroup>
#include <QCalendarWidget>
#include <QDateTimeEdit>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QTextCharFormat>
#include <QToolButton>

#include "controls/WindowHost.h"
#include "ui/qt/Binder.h"
#include "ui/qt/Convert.h"
#include "ui/qt/GridView.h"
#include "ui/qt/Icons.h"

namespace tessarin {

QTableView* Binder::Bind(Grid& grid) {
  const auto askKey = [this, &grid](GridKey key) {
    bool done = false;
    if (grid.keyPressed) Act(grid, [&] { done = grid.keyPressed(key); });
    return done;
  };
  auto* widget = new GridView(grid, askKey, &top_);
  auto* model = new GridModel(grid, widget);
  widget->setModel(model);
  views_.push_back(widget);
  auto shown = std::make_shared<int>(-1);
  BindState(grid, *widget, [&grid, widget, model, shown] {
    const QSignalBlocker quiet(widget->selectionModel());
    if (std::exchange(*shown, grid.version()) != grid.version()) model->Reset();
    widget->ShowSheet();
    const bool hasCurrent = grid.CurrentRow() > 0;
    widget->setCurrentIndex(hasCurrent ? model->index(grid.CurrentRow() - 1, grid.CurrentColumn())
                                       : QModelIndex());
    widget->viewport()->update();
  });
  const auto place = [this, &grid](const QModelIndex& index,
                                   const std::function<void(int, int)>& act) {
    if (!index.isValid()) return;
    Act(grid, [&act, row = index.row() + 1, column = index.column()] { act(row, column); });
  };
  connect(widget->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [&grid, place](const QModelIndex& index) {
            place(index, [&grid](int row, int column) { grid.SetCurrent(row, column); });
          });
  connect(widget, &QTableView::clicked, this, [&grid, place](const QModelIndex& index) {
    place(index, [&grid](int row, int column) { grid.SelectByUser(row, column); });
  });
  connect(widget, &QTableView::activated, this,
          [this, &grid] { Act(grid, [&] { grid.activated(); }); });
  return widget;
}

QWidget* Binder::BindAsButtons(ComboBox& box) {
  auto* widget = new QWidget(&top_);
  auto* row = new QHBoxLayout(widget);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  // The style's own pressed button is hard to tell from the others on dark.
  widget->setStyleSheet(QStringLiteral(
      "QToolButton { border: 1px solid palette(mid); padding: 4px 10px; background: "
      "palette(button); }"
      "QToolButton:focus { border-color: palette(link); }"
      "QToolButton:checked { background: palette(highlight); color: palette(highlighted-text); }"));
  auto* group = new QButtonGroup(widget);
  BindState(box, *widget, [&box, widget, row, group] {
    while (group->buttons().size() < box.Count()) {
      auto* button = new QToolButton(widget);
      button->setCheckable(true);
      button->setFocusPolicy(Qt::StrongFocus);
      group->addButton(button, static_cast<int>(group->buttons().size()));
      row->addWidget(button);
    }
    const QSignalBlocker quiet(group);
    for (int index = 0; index < box.Count(); ++index) {
      group->button(index)->setText(ToQt(box.Item(index)));
      group->button(index)->setChecked(index == box.Selected());
    }
  });
  // A screen reader toggles without a click.
  connect(group, &QButtonGroup::idToggled, this, [this, &box](int index, bool checked) {
    if (!checked) return;
    Act(box, [&] {
      box.Select(index);
      box.clicked();
    });
  });
  return widget;
}

QWidget* Binder::Bind(UpDown& arrows) {
  auto* widget = new QWidget(&top_);
  auto* column = new QVBoxLayout(widget);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  const auto add = [&](Qt::ArrowType arrow, int step) {
    auto* button = new QToolButton(widget);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);  // the keys of the field beside it do the same
    button->setFixedSize(20, 13);
    column->addWidget(button);
    connect(button, &QToolButton::clicked, this,
            [this, &arrows, step] { Act(arrows, [&] { arrows.stepped(step); }); });
    return button;
  };
  auto* up = add(Qt::UpArrow, 1);
  auto* down = add(Qt::DownArrow, -1);
  BindState(arrows, *widget, [&arrows, up, down] {
    up->setAccessibleName(ToQt(arrows.accessibleName) + QStringLiteral(" +1"));
    down->setAccessibleName(ToQt(arrows.accessibleName) + QStringLiteral(" -1"));
  });
  return widget;
}

namespace {

QDateTime MomentOf(DateValue value) {
  const DateParts parts = modDate::Unpack(value);
  return {{parts.year, parts.month, parts.day}, {parts.hour, parts.minute, parts.second}};
}

DateValue ValueOf(const QDateTime& moment) {
  const QDate date = moment.date();
  const QTime time = moment.time();
  return modDate::PackDate(date.year(), date.month(), date.day()) +
         modDate::PackTime(time.hour(), time.minute(), time.second());
}

}  // namespace

namespace {

// The month looks like the calendar's own sheet, whatever the style's arrows and colours are.
void PrepareMonth(QCalendarWidget& month) {
  month.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  month.setFirstDayOfWeek(Qt::Sunday);
  for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
    month.setWeekdayTextFormat(day, month.weekdayTextFormat(Qt::Monday));
  }
  const std::pair<const char*, const char*> arrows[] = {{"qt_calendar_prevmonth", "back"},
                                                        {"qt_calendar_nextmonth", "next"}};
  for (const auto& [name, image] : arrows) {
    if (auto* arrow = month.findChild<QToolButton*>(QLatin1String(name))) {
      arrow->setIcon(Icon(image));
    }
  }
}

}  // namespace

// The moment is one without a zone: a time of day that a zone's clock skips is a time all the same.
QDateTimeEdit* Binder::Bind(DateTimePicker& picker) {
  auto* widget = new QDateTimeEdit(&top_);
  widget->setTimeSpec(Qt::UTC);
  const bool isDate = picker.kind() == DateTimePicker::Kind::Date;
  widget->setDisplayFormat(isDate ? QStringLiteral("dd/MM/yyyy") : QStringLiteral("HH:mm"));
  widget->setCalendarPopup(isDate);
  if (isDate) PrepareMonth(*widget->calendarWidget());
  BindState(picker, *widget, [&picker, widget] {
    const QSignalBlocker quiet(widget);
    const QDateTime moment = MomentOf(picker.value);
    widget->setDateTime({moment.date(), moment.time(), Qt::UTC});
  });
  connect(widget, &QDateTimeEdit::dateTimeChanged, this, [this, &picker](const QDateTime& moment) {
    Act(picker, [&] {
      picker.value = ValueOf(moment);
      picker.edited();
    });
  });
  return widget;
}

}  // namespace tessarin
