#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QTreeView>

#include "core/PageTable.h"
#include "core/TessarinMenu.h"
#include "ui/qt/Icons.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/StartPanelLayout.h"
#include "ui/windows/Style.h"

namespace tessarin {

namespace {

void LayOutFilePage(TessarinMenu& window, QWidget& page, Binder& bind) {
  auto* panes = new QSplitter(&page);
  panes->addWidget(bind.Bind(window.tvwPhoneDir));
  panes->addWidget(bind.Bind(window.lvwPhoneFile));
  panes->setStretchFactor(1, 1);
  panes->setSizes({260, 700});
  panes->setChildrenCollapsible(false);
  auto* column = new QVBoxLayout(&page);
  column->setContentsMargins(kGap, kGap, kGap, kGap);
  column->addWidget(panes);
}

}  // namespace

void LayOut(TessarinMenu& window, QWidget& top, Binder& bind) {
  auto& frame = static_cast<QMainWindow&>(top);
  frame.setWindowIcon(QApplication::windowIcon());
  frame.setMenuBar(bind.Bind(window.MainMenu));
  frame.setContextMenuPolicy(Qt::NoContextMenu);
  auto* pages = bind.Bind(window.Toolbar2, true);
  auto* actions = bind.Bind(window.Toolbar1, false);
  frame.addToolBar(Qt::TopToolBarArea, pages);
  frame.addToolBarBreak();
  frame.addToolBar(Qt::TopToolBarArea, actions);
  bind.Follow(window.Toolbar1,
              [&window, actions] { actions->setVisible(!window.Toolbar1.buttons().empty()); });

  // All panels have the same place; the session shows one of them at a time.
  auto* middle = new QWidget(&frame);
  auto* place = new QVBoxLayout(middle);
  place->setContentsMargins(0, 0, 0, 0);
  for (int index = 0; index <= kStartPanel; ++index) {
    auto* panel = bind.Bind(*window.ToolFrame[static_cast<std::size_t>(index)]);
    if (index == 0) LayOutFilePage(window, *panel, bind);
    if (index == kStartPanel) LayOutStartPanel(window.start, *panel, bind);
    place->addWidget(panel);
  }
  frame.setCentralWidget(middle);

  auto* status = bind.Bind(window.StatusBar1);
  status->insertWidget(0, bind.Bind(window.Lbstatus));
  frame.setStatusBar(status);
  bind.Bind(window.Timer1);
  bind.Bind(window.Timer2);
  frame.setMinimumSize(800, 560);
  frame.resize(1000, 680);
}

}  // namespace tessarin
