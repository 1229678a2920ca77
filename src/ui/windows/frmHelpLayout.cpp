#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTextBrowser>
#include <QTreeView>

#include "core/frmHelp.h"
#include "ui/qt/Convert.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"

namespace tessarin {

namespace {

// A key that does what a button does, as long as the button can be pressed.
void GiveKey(QWidget& top, const char* keys, QAbstractButton* button) {
  auto* shortcut = new QShortcut(QKeySequence(QLatin1String(keys)), &top);
  QObject::connect(shortcut, &QShortcut::activated, button, &QAbstractButton::click);
}

QHBoxLayout* ToolRow(frmHelp& window, QWidget& top, Binder& bind) {
  auto* back = bind.Bind(window.cmdBack);
  auto* forward = bind.Bind(window.cmdForward);
  auto* home = bind.Bind(window.cmdHome);
  GiveKey(top, "Alt+Left", back);
  GiveKey(top, "Alt+Right", forward);
  GiveKey(top, "Alt+Home", home);
  auto* title = bind.Bind(window.lblTitle);
  title->setForegroundRole(QPalette::PlaceholderText);
  title->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  auto* row = new QHBoxLayout;
  for (QPushButton* button : {back, forward, home}) row->addWidget(button);
  row->addWidget(title, 1);
  return row;
}

QHBoxLayout* SearchRow(frmHelp& window, QWidget& top, Binder& bind) {
  auto* words = bind.Bind(window.txtSearch);
  auto* search = bind.Bind(window.cmdSearch);
  words->setClearButtonEnabled(true);
  bind.Follow(window.txtSearch,
              [&window, words] { words->setPlaceholderText(ToQt(window.txtSearch.toolTip)); });
  QObject::connect(words, &QLineEdit::returnPressed, search, &QAbstractButton::click);
  auto* find = new QShortcut(QKeySequence(QKeySequence::Find), &top);
  QObject::connect(find, &QShortcut::activated, words, [words] {
    words->setFocus();
    words->selectAll();
  });
  auto* row = new QHBoxLayout;
  row->addWidget(words, 1);
  row->addWidget(search);
  return row;
}

// The search above, and below it the contents or what was found.
QWidget* LeftSide(frmHelp& window, QWidget& top, Binder& bind) {
  auto* side = new QWidget(&top);
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  column->addLayout(SearchRow(window, top, bind));
  column->addWidget(AsHeading(bind.Bind(window.lblList), 1.0));
  column->addWidget(bind.Bind(window.tvwContents), 1);
  auto* found = bind.Bind(window.lvwFound);
  found->header()->hide();
  column->addWidget(found, 1);
  return side;
}

}  // namespace

void LayOut(frmHelp& window, QWidget& top, Binder& bind) {
  // A window of its own, which the main window may come in front of.
  top.setParent(nullptr, Qt::Window);
  auto* halves = new QSplitter(&top);
  halves->addWidget(LeftSide(window, top, bind));
  auto* page = bind.Bind(window.htmPage);
  halves->addWidget(page);
  halves->setStretchFactor(1, 1);
  halves->setSizes({300, 600});
  halves->setChildrenCollapsible(false);
  auto* column = new QVBoxLayout(&top);
  column->setContentsMargins(kGap, kGap, kGap, kGap);
  column->setSpacing(kGap);
  column->addLayout(ToolRow(window, top, bind));
  column->addWidget(halves, 1);
  page->setFocus();
  top.setMinimumSize(640, 420);
  top.resize(920, 640);
}

}  // namespace tessarin
