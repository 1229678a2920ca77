#include "ui/windows/PageLayouts.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>
#include <QTreeView>

#include "core/PageTable.h"
#include "ui/windows/Style.h"

namespace tessarin {

namespace {

// A page's column: what the page is for, then its body.
QVBoxLayout* PageColumn(TessarinMenu& window, int page, QWidget& panel, Binder& bind) {
  auto* column = new QVBoxLayout(&panel);
  column->setContentsMargins(kGap, kGap, kGap, kGap);
  column->setSpacing(kGap / 2);
  auto* about = bind.Bind(*window.lblAbout[static_cast<std::size_t>(page)]);
  about->setForegroundRole(QPalette::PlaceholderText);
  column->addWidget(about);
  return column;
}

QSplitter* Splitter(Qt::Orientation orientation, std::initializer_list<QWidget*> parts) {
  auto* splitter = new QSplitter(orientation);
  splitter->setChildrenCollapsible(false);
  splitter->setHandleWidth(kGap / 2);
  for (QWidget* part : parts) splitter->addWidget(part);
  return splitter;
}

// A tree above its list.
QSplitter* Pane(QTreeView* tree, QTreeView* list) {
  auto* pane = Splitter(Qt::Vertical, {tree, list});
  pane->setSizes({200, 300});
  pane->setStretchFactor(1, 1);
  return pane;
}

QWidget* Arrows(const FilePanes& panes, Binder& bind) {
  auto* frame = new QWidget;
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(0, 0, 0, 0);
  column->addStretch(1);
  for (Button* arrow : {&panes.download, &panes.upload}) {
    auto* button = bind.Bind(*arrow);
    button->setIconSize({24, 24});
    button->setFixedSize(40, 40);
    column->addWidget(button);
  }
  column->addStretch(1);
  return frame;
}

// The player's buttons of the ringtone page.
QHBoxLayout* Player(TessarinMenu& window, Binder& bind) {
  auto* row = new QHBoxLayout;
  for (Button* button : {&window.cmdPlay, &window.cmdPause, &window.cmdStop}) {
    row->addWidget(bind.Bind(*button));
  }
  row->addStretch(1);
  return row;
}

}  // namespace

void LayOutFilePage(TessarinMenu& window, const FilePanes& panes, QWidget& panel, Binder& bind) {
  auto* column = PageColumn(window, panes.panel, panel, bind);
  auto* phone = new QWidget;
  auto* phoneColumn = new QVBoxLayout(phone);
  phoneColumn->setContentsMargins(0, 0, 0, 0);
  auto* phoneHead = new QHBoxLayout;
  phoneHead->addWidget(AsHeading(bind.Bind(*panes.phoneHead), 1.0), 1);
  if (panes.storage != nullptr) phoneHead->addWidget(bind.Bind(*panes.storage));
  phoneColumn->addLayout(phoneHead);
  phoneColumn->addWidget(Pane(bind.Bind(panes.phoneTree), bind.Bind(panes.phoneList)), 1);
  if (panes.panel == kRingtonePanel) phoneColumn->addLayout(Player(window, bind));
  if (panes.preview != nullptr) phoneColumn->addWidget(bind.Bind(*panes.preview, 120, 100));

  auto* computer = new QWidget;
  auto* computerRow = new QHBoxLayout(computer);
  computerRow->setContentsMargins(0, 0, 0, 0);
  computerRow->addWidget(Arrows(panes, bind));
  auto* computerColumn = new QVBoxLayout;
  auto* computerHead = AsHeading(bind.Bind(*panes.computerHead), 1.0);
  computerHead->setMinimumHeight(phoneHead->sizeHint().height());
  computerColumn->addWidget(computerHead);
  computerColumn->addWidget(Pane(bind.Bind(panes.computerTree), bind.Bind(panes.computerList)), 1);
  computerRow->addLayout(computerColumn, 1);
  auto* both = Splitter(Qt::Horizontal, {phone, computer});
  both->setSizes({500, 500});
  column->addWidget(both, 1);
}

void LayOutSmsPage(TessarinMenu& window, QWidget& panel, Binder& bind) {
  auto* column = PageColumn(window, 1, panel, bind);
  auto* folders =
      Splitter(Qt::Vertical, {bind.Bind(window.tvwPhoneSMS), bind.Bind(window.tvwPCSMS)});
  auto* text = bind.BindMultiLine(window.rtbSMS);
  text->setReadOnly(true);
  auto* messages = Splitter(Qt::Vertical, {bind.Bind(window.lvwPhoneSMS), text});
  auto* both = Splitter(Qt::Horizontal, {folders, messages});
  both->setSizes({240, 760});
  column->addWidget(both, 1);
}

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

void LayOutPhonebookPage(TessarinMenu& window, QWidget& panel, Binder& bind) {
  auto* column = PageColumn(window, kPhonebookPanel, panel, bind);
  auto* memories = Splitter(
      Qt::Vertical, {bind.Bind(window.tvwPhonePhonebook), bind.Bind(window.tvwPCPhonebook)});
  auto* details = bind.BindMultiLine(window.rtbPhonebook);
  details->setReadOnly(true);
  auto* contacts = Splitter(Qt::Vertical, {bind.Bind(window.lvwPhonePhonebook), details});
  auto* both = Splitter(Qt::Horizontal, {memories, contacts});
  both->setSizes({240, 760});
  column->addWidget(both, 1);
}

}  // namespace tessarin
