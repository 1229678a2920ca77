#include "ui/windows/StartPanelLayout.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>

#include "ui/windows/Style.h"

namespace tessarin {

namespace {

constexpr int kTextWidth = 480;

QLabel* Faint(QLabel* label) {
  label->setForegroundRole(QPalette::PlaceholderText);
  return label;
}

QGridLayout* Facts(StartPanel& start, Binder& bind) {
  auto* facts = new QGridLayout;
  facts->setHorizontalSpacing(kMargin);
  facts->setVerticalSpacing(kGap / 2);
  facts->setColumnStretch(2, 1);
  facts->addWidget(Faint(bind.Bind(start.lblBattery)), 0, 0);
  facts->addWidget(bind.Bind(start.imgBattery, 32, 20), 0, 1);
  facts->addWidget(bind.Bind(start.lblBatteryValue), 0, 2);
  facts->addWidget(Faint(bind.Bind(start.lblStorage)), 1, 0);
  facts->addWidget(bind.Bind(start.lblStorageValue), 1, 1, 1, 2);
  facts->addWidget(Faint(bind.Bind(start.lblPort)), 2, 0);
  facts->addWidget(bind.Bind(start.lblPortValue), 2, 1, 1, 2);
  return facts;
}

// Two columns of equally wide buttons.
QGridLayout* NextSteps(StartPanel& start, Binder& bind) {
  auto* steps = new QGridLayout;
  steps->setSpacing(kGap / 2);
  int place = 0;
  for (const auto& next : start.cmdNext) {
    auto* button = bind.Bind(*next);
    button->setIconSize({24, 24});
    button->setStyleSheet(QStringLiteral("text-align: left"));
    steps->addWidget(button, place / 2, place % 2);
    ++place;
  }
  for (const int column : {0, 1}) steps->setColumnStretch(column, 1);
  return steps;
}

}  // namespace

void LayOutStartPanel(StartPanel& start, QWidget& panel, Binder& bind) {
  auto* words = new QVBoxLayout;
  words->setSpacing(kGap);
  words->addStretch(1);
  words->addWidget(AsHeading(bind.Bind(start.lblHeading), 1.8));
  words->addWidget(Faint(bind.Bind(start.lblHint)));
  words->addLayout(Facts(start, bind));
  words->addSpacing(kGap);
  words->addWidget(AsHeading(bind.Bind(start.lblNext), 1.1));
  for (Label* step : {&start.lblStep1, &start.lblStep2, &start.lblStep3}) {
    words->addWidget(bind.Bind(*step));
  }
  words->addLayout(NextSteps(start, bind));
  words->addStretch(1);

  auto* frame = new QWidget(&panel);
  frame->setLayout(words);
  frame->setFixedWidth(kTextWidth);
  auto* row = new QHBoxLayout(&panel);
  row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  row->setSpacing(2 * kMargin);
  row->addStretch(1);
  row->addWidget(bind.Bind(start.imgPhone, 160, 320));
  row->addWidget(frame);
  row->addStretch(1);
}

}  // namespace tessarin
