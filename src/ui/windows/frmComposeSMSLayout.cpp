#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>

#include "messages/frmComposeSMS.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"

namespace tessarin {

namespace {

constexpr int kSideWidth = 344;
constexpr int kTextWidth = 420;
constexpr int kTextHeight = 220;
constexpr int kSmileysInARow = 8;

QLabel* OnOneLine(QLabel* label) {
  label->setWordWrap(false);
  return label;
}

QHBoxLayout* Recipients(frmComposeSMS& window, Binder& bind) {
  auto* row = new QHBoxLayout;
  row->addWidget(OnOneLine(bind.Bind(window.lblTo)));
  row->addWidget(bind.Bind(window.Text1), 1);
  row->addWidget(bind.Bind(window.toPhoneBook));
  return row;
}

QHBoxLayout* Counter(frmComposeSMS& window, Binder& bind) {
  auto* row = new QHBoxLayout;
  row->setSpacing(4);
  row->addWidget(OnOneLine(bind.Bind(window.Label2)));
  row->addWidget(OnOneLine(bind.Bind(window.Label3)));
  row->addSpacing(kGap);
  row->addWidget(OnOneLine(bind.Bind(window.lblParts)));
  row->addStretch(1);
  row->addWidget(OnOneLine(bind.Bind(window.lblSending)));
  return row;
}

QHBoxLayout* Buttons(frmComposeSMS& window, Binder& bind) {
  auto* row = new QHBoxLayout;
  for (Button* side : {&window.Command2, &window.Command3}) row->addWidget(bind.Bind(*side));
  row->addStretch(1);
  row->addWidget(bind.Bind(window.CmdSend));
  row->addWidget(bind.Bind(window.cmdCancel));
  return row;
}

QVBoxLayout* Message(frmComposeSMS& window, Binder& bind) {
  auto* column = new QVBoxLayout;
  column->setSpacing(kGap / 2);
  column->addLayout(Recipients(window, bind));
  column->addSpacing(kGap / 2);
  column->addWidget(bind.Bind(window.lblMessage));
  auto* text = bind.Bind(window.RichTextBox1);
  text->setMinimumSize(kTextWidth, kTextHeight);
  column->addWidget(text, 1);
  column->addLayout(Counter(window, bind));
  column->addSpacing(kGap / 2);
  column->addLayout(Buttons(window, bind));
  return column;
}

// Two buttons of which the one whose panel is seen stands pressed.
QHBoxLayout* SideChoice(frmComposeSMS& window, Binder& bind) {
  auto* row = new QHBoxLayout;
  row->setSpacing(0);
  const std::pair<Button*, Panel*> choices[] = {{&window.Label5, &window.Frame2},
                                                {&window.Label6, &window.Frame3}};
  for (const auto& [choice, panel] : choices) {
    auto* button = bind.Bind(*choice);
    button->setCheckable(true);
    button->setAutoExclusive(true);
    bind.Follow(*panel, [button, shown = panel] { button->setChecked(shown->visible); });
    row->addWidget(button, 1);
  }
  return row;
}

// A click keeps the writing where it is; the keyboard reaches every smiley.
QWidget* Smileys(frmComposeSMS& window, Binder& bind) {
  auto* frame = bind.Bind(window.Frame2);
  auto* sheet = new QWidget;
  auto* grid = new QGridLayout(sheet);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(2);
  for (int index = 0; const auto& smiley : window.Command1) {
    auto* button = bind.Bind(*smiley);
    button->setFixedSize(36, 36);
    button->setIconSize({28, 28});
    button->setFlat(true);
    button->setFocusPolicy(Qt::TabFocus);
    grid->addWidget(button, index / kSmileysInARow, index % kSmileysInARow);
    ++index;
  }
  auto* area = new QScrollArea;
  area->setFrameShape(QFrame::NoFrame);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(sheet);
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(area);
  return frame;
}

QWidget* Templates(frmComposeSMS& window, Binder& bind) {
  auto* frame = bind.Bind(window.Frame3);
  auto* list = bind.Bind(window.List1);
  list->setWordWrap(true);
  list->setAlternatingRowColors(true);
  auto* grid = new QGridLayout(frame);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->addWidget(list, 0, 0, 1, 3);
  grid->addWidget(bind.Bind(window.Command5), 1, 0);
  grid->addWidget(bind.Bind(window.Command7), 1, 1);
  grid->addWidget(bind.Bind(window.Command8), 1, 2);
  grid->addWidget(bind.Bind(window.Command6), 2, 0);
  grid->addWidget(bind.Bind(window.Command4), 2, 2);
  return frame;
}

QWidget* Side(frmComposeSMS& window, Binder& bind) {
  auto* frame = bind.Bind(window.Frame1);
  frame->setFixedWidth(kSideWidth);
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(kGap, 0, 0, 0);
  column->addLayout(SideChoice(window, bind));
  column->addWidget(Smileys(window, bind), 1);
  column->addWidget(Templates(window, bind), 1);
  return frame;
}

}  // namespace

// As wide as what is seen of it.
void LayOut(frmComposeSMS& window, QWidget& top, Binder& bind) {
  auto* row = new QHBoxLayout(&top);
  row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  row->setSizeConstraint(QLayout::SetFixedSize);
  row->addLayout(Message(window, bind), 1);
  row->addWidget(Side(window, bind));
}

}  // namespace tessarin
