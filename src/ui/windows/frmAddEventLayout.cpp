#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "calendar/frmAddEvent.h"
#include "ui/qt/Convert.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"

namespace tessarin {

namespace {

// A date and its time beside each other, each behind its word.
void AddMoment(frmAddEvent& window, frmAddEvent::Moment moment, Label& dateWord, Label& timeWord,
               QGridLayout& rows, Binder& bind) {
  const int row = rows.rowCount();
  rows.addWidget(bind.Bind(dateWord), row, 0);
  rows.addWidget(bind.Bind(window.DPicker(moment)), row, 1);
  rows.addWidget(bind.Bind(timeWord), row, 2);
  rows.addWidget(bind.Bind(window.TPicker(moment)), row, 3);
}

void AddField(Label& word, QWidget* field, QGridLayout& rows, Binder& bind,
              Qt::Alignment placeOfWord = {}) {
  const int row = rows.rowCount();
  rows.addWidget(bind.Bind(word), row, 0, placeOfWord);
  rows.addWidget(field, row, 1, 1, 3);
}

QGridLayout* Fields(frmAddEvent& window, Binder& bind) {
  auto* rows = new QGridLayout;
  rows->setHorizontalSpacing(kGap);
  rows->setVerticalSpacing(kGap);
  rows->setColumnMinimumWidth(0, 110);
  rows->setColumnMinimumWidth(2, 90);
  rows->setColumnStretch(1, 1);
  rows->setColumnStretch(3, 1);
  auto* subject = bind.Bind(window.Text1);
  subject->setFixedHeight(4 * subject->fontMetrics().lineSpacing() + 12);
  AddField(window.Label1, bind.Bind(window.Combo1), *rows, bind);
  AddField(window.Label2, subject, *rows, bind, Qt::AlignTop);
  AddField(window.Label3, bind.Bind(window.Text2), *rows, bind);
  AddMoment(window, frmAddEvent::kStart, window.Label5, window.Label6, *rows, bind);
  AddMoment(window, frmAddEvent::kEnd, window.Label4, window.Label11, *rows, bind);
  AddField(window.Label7, bind.Bind(window.Check1), *rows, bind);
  AddMoment(window, frmAddEvent::kAlarm, window.Label8, window.Label9, *rows, bind);
  subject->setFocus();
  return rows;
}

}  // namespace

void LayOut(frmAddEvent& window, QWidget& top, Binder& bind) {
  auto* event = new QGroupBox(&top);
  bind.Follow(window.Frame1, [&window, event] { event->setTitle(ToQt(window.Frame1.caption)); });
  event->setLayout(Fields(window, bind));
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  auto* ok = bind.Bind(window.Command1);
  ok->setDefault(true);
  buttons->addWidget(ok);
  buttons->addWidget(bind.Bind(window.Command2));
  auto* column = Column(top, 520);
  column->addWidget(event);
  column->addLayout(buttons);
}

}  // namespace tessarin
